// The session that the README shows, typed at the program: every answer is there
// as shown, blanks apart.
#include <gtest/gtest.h>

#include <vector>

#include "program_runner.h"

namespace olt_host_test {
namespace {

const std::string kPrompt = "    olt> ";

std::string Squeezed(const std::string& text) {
  std::istringstream words(text);
  std::string squeezed;
  for (std::string word; words >> word;) squeezed += word + " ";
  return squeezed;
}

struct ShownSession {
  std::string typed;
  std::vector<std::string> answers;  // lines, squeezed
};

// What the section shows behind prompts. "..." stands for lines left out.
ShownSession SessionIn(const std::string& file, const std::string& heading) {
  const std::string page = ReadFile(file);
  const std::size_t begin = page.find(heading + "\n");
  std::istringstream lines(page.substr(begin, page.find("\n## ", begin + 1) - begin));
  ShownSession session;
  for (std::string line; std::getline(lines, line);) {
    if (line.compare(0, kPrompt.size(), kPrompt) == 0) {
      session.typed += line.substr(kPrompt.size()) + "\n";
    } else if (line.compare(0, 4, "    ") == 0 && !session.typed.empty() && line != "    ...") {
      session.answers.push_back(Squeezed(line));
    }
  }
  return session;
}

TEST(Readme, TheFirstHalfHourAnswersAsShown) {
  const ShownSession session =
      SessionIn(std::string(OLT_HOST_SHIPPED_DATA) + "/../README.md", "## The first half hour");
  ASSERT_GT(session.answers.size(), 30U);
  const TemporaryDirectory directory;
  const std::string data = OLT_HOST_SHIPPED_DATA;
  const ProgramResult result = RunProgram({"run", data + "/catalogue.yaml", data + "/reports.yaml",
                                           "--state", directory.Path("my.state"), "-f", "-"},
                                          session.typed);
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  const std::string out = Squeezed(result.out);
  std::size_t at = 0;
  for (const std::string& answer : session.answers) {
    const std::size_t found = out.find(answer, at);
    EXPECT_NE(found, std::string::npos) << "not behind what is shown before it: " << answer;
    if (found != std::string::npos) at = found + answer.size();
  }
}

}  // namespace
}  // namespace olt_host_test
