// Lines as operators type them: editing keys, history, completion, help.
#include "session/session_fixture.h"

namespace olt_host {
namespace {

class TypedLines : public Sessions {
 protected:
  void SetUp() override { Open(client); }
  void Open(Client& opened) {
    ASSERT_TRUE(opened.Start(server()));
    ASSERT_TRUE(opened.Sees("olt> "));
  }
  Client client;
};

TEST_F(TypedLines, AreEchoedAndRun) {
  client.Type("say hello");
  EXPECT_TRUE(client.Shows("olt> say hello"));
  client.Type("\r");
  EXPECT_TRUE(client.Sees("\r\nhello\r\nolt> "));
}

TEST_F(TypedLines, CanBeEditedWithEmacsKeys) {
  client.Type("ay hexo\x01s\x05\x02\x02\x04ll");  // ^A ^E ^B ^B ^D
  EXPECT_TRUE(client.Shows("olt> say hello"));
  client.Type(
      "\x15say one two\x17"
      "three\r");  // ^U ^W
  EXPECT_TRUE(client.Sees("% ")) << "too many words for the command";
  client.Type("say one\x0b two\x01\x06\x06\x06\x0b\x19\r");  // ^K, ^A ^F ^F ^F ^K ^Y
  EXPECT_TRUE(client.Sees("% "));
  client.Type("say wrogn\x02\x14\r");  // ^T
  EXPECT_TRUE(client.Sees("\r\nwro"));
}

TEST_F(TypedLines, CanBeEditedWithTheKeysOfTerminals) {
  client.Type("ay hexo\x1b[Hs\x1b[F\x1b[D\x1b[D\x1b[3~ll");
  EXPECT_TRUE(client.Shows("olt> say hello"));
  client.Type(
      "\x15"
      "ay b\x1bOH"
      "s\x1bOF"
      "c\x1b[1;5D"
      "a\r");
  EXPECT_TRUE(client.Sees("\r\nabc\r\n"));
}

TEST_F(TypedLines, BothBackspacesErase) {
  client.Type(
      "say abx\x7f"
      "cy\b\r");
  EXPECT_TRUE(client.Sees("\r\nabc\r\n"));
}

TEST_F(TypedLines, KeysThatMeanNothingAddNothing) {
  client.Type("say a\x1b[5~\x1b[15~\x1b[200~\x1bOP\x1b[<0;10;20Mb\x1a\x16\r");
  EXPECT_TRUE(client.Sees("\r\nab\r\n"));
}

TEST_F(TypedLines, AnInterruptInsideASequenceCounts) {
  client.Type("say a\x1b[1\x03");
  EXPECT_TRUE(client.Sees("^C\r\nolt> "));
}

TEST_F(TypedLines, NoKeyRepeatsAnotherAMillionTimes) {
  client.Type(
      "say \x1b"
      "9\x1b"
      "9\x1b"
      "9\x1b"
      "9\x1b"
      "9z\r");
  EXPECT_TRUE(client.Sees("\r\nz\r\n"));
}

TEST_F(TypedLines, NoKeyRunsCommandsOfTheEditor) {
  client.Type("\x1bxhistory size 0\r");
  EXPECT_TRUE(client.Sees("% Unknown command"));
}

TEST_F(TypedLines, EveryFormOfEnterEndsOneLine) {
  client.Type("say a\r\nsay b\nsay c\r");
  client.Type(std::string("\0say d\r", 7));
  for (const char* word : {"a", "b", "c", "d"}) {
    EXPECT_TRUE(client.Sees(std::string("\r\n") + word + "\r\n")) << word;
  }
  client.Type("say e\r");
  EXPECT_TRUE(client.Sees("\r\ne\r\nolt> "));
  EXPECT_EQ(std::string::npos, client.screen().Text().find("olt> \n")) << client.screen().Text();
}

TEST_F(TypedLines, MayHoldUtf8) {
  client.Type("say gr\xc3\xbc\xc3\x9fx\x7f\x02\x02\x04\xc3\xb6\r");
  EXPECT_TRUE(client.Sees("\r\ngr\xc3\xb6\xc3\x9f\r\n"));
}

TEST_F(TypedLines, AreDroppedByCtrlC) {
  client.Type("say never\x03");
  EXPECT_TRUE(client.Sees("^C\r\nolt> "));
  client.Type("say now\r");
  EXPECT_TRUE(client.Sees("\r\nnow\r\n"));
  EXPECT_EQ(std::string::npos, client.bytes().find("\nnever"));
}

TEST_F(TypedLines, CtrlDEndsTheSessionOnAnEmptyLineOnly) {
  client.Type("say x\x04\x01\x04\x04\x04\x04");
  EXPECT_TRUE(client.Shows("olt> x"));
  client.Type("\x04");
  EXPECT_TRUE(client.Shows("olt> "));
  client.Type("\x04");
  EXPECT_TRUE(client.AwaitEnd());
  EXPECT_EQ(0U, client.screen().column());
}

TEST_F(TypedLines, ComeBackWithTheArrowKeys) {
  client.Type("say one\rsay two\rsay two\r");
  EXPECT_TRUE(client.Sees("\r\none\r\n"));
  EXPECT_TRUE(client.Sees("\r\ntwo\r\n"));
  EXPECT_TRUE(client.Sees("\r\ntwo\r\nolt> "));
  client.Type("\x1b[A");
  EXPECT_TRUE(client.Shows("olt> say two"));
  client.Type("\x10");
  EXPECT_TRUE(client.Shows("olt> say one")) << "the same line twice is one";
  client.Type("\x1b[B");
  EXPECT_TRUE(client.Shows("olt> say two"));
}

TEST_F(TypedLines, AreFoundByIncrementalSearch) {
  client.Type("say needle\rsay need\rsay hay\r");
  EXPECT_TRUE(client.Sees("\r\nhay\r\nolt> "));
  client.Type("\x12nee");
  EXPECT_TRUE(client.Shows("(search) \"nee\": say need"));
  client.Type("\x12");
  EXPECT_TRUE(client.Shows("(search) \"nee\": say needle")) << "the one before";
  client.Type("x");
  EXPECT_TRUE(client.Shows("(not found) \"neex\": say needle"));
  client.Type("\b\x12\r");
  EXPECT_TRUE(client.Sees("\r\nneedle\r\nolt> "));
}

TEST_F(TypedLines, ASearchEndsWithEveryOtherKeyAndCtrlCGivesTheLineBack) {
  client.Type("say needle\r");
  EXPECT_TRUE(client.Sees("\r\nneedle\r\nolt> "));
  client.Type("say x\x12need");
  EXPECT_TRUE(client.Shows("(search) \"need\": say needle"));
  client.Type("\x03");
  EXPECT_TRUE(client.Shows("olt> say x"));
  client.Type(
      "\x12need\x1b[D\x7f\x05"
      "r");
  EXPECT_TRUE(client.Shows("olt> say needer"));
  client.Type("\x12need\x1b");
  EXPECT_TRUE(client.Shows("olt> say needle"));
}

TEST_F(TypedLines, ASearchTakesAnyTextAndAnyNumberOfKeys) {
  client.Type("say aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\r");
  EXPECT_TRUE(client.Sees("olt> "));
  client.Type("\x12\\(a*\\)*\\1[" + std::string(200, 'p') +
              "\x03\x12"
              "a");
  client.Type(std::string(200000, '\x12') + "\x03say on\r");
  EXPECT_TRUE(client.Sees("\r\non\r\n"));
}

TEST_F(TypedLines, ShowHistoryListsThem) {
  client.Type("say one\rshow history\r");
  EXPECT_TRUE(client.Sees("\r\none\r\nolt> "));
  EXPECT_TRUE(client.Sees("say one\r\n"));
  EXPECT_TRUE(client.Sees("show history\r\n"));
}

TEST_F(TypedLines, TabCompletesTheWord) {
  client.Type("sh\tro\t5\r");
  EXPECT_TRUE(client.Sees("row 5\r\nolt> "));
  EXPECT_NE(std::string::npos, client.screen().Text().find("olt> show rows 5\nrow 1\n"))
      << client.screen().Text();
}

TEST_F(TypedLines, TabListsTheCandidatesUnderTheLineAndShowsItAgain) {
  client.Type("show \t");
  EXPECT_TRUE(client.Await([this] {
    const std::string text = client.screen().Text();
    const std::size_t list = text.find("rows");
    return list != std::string::npos && text.find("olt> show", list) != std::string::npos;
  })) << client.screen().Text();
  EXPECT_EQ("olt> show ", client.screen().CursorLine());
  client.Type("rows 1\r");
  EXPECT_TRUE(client.Sees("row 1\r\n"));
}

TEST_F(TypedLines, TabRingsWhereNothingFits) {
  client.Type("nonsense \t");
  EXPECT_TRUE(client.Await([this] { return client.screen().bells() == 1; }));
}

TEST_F(TypedLines, AQuestionMarkShowsTheHelpOfThePlace) {
  client.Type("show rows ?");
  EXPECT_TRUE(client.Sees("<1-10000000>"));
  EXPECT_TRUE(client.Sees("how many\r\n"));
  EXPECT_TRUE(client.Shows("olt> show rows "));
  client.Type("2\r");
  EXPECT_TRUE(client.Sees("row 2\r\n"));
  EXPECT_EQ(std::string::npos, client.screen().Text().find("rows ?"));
}

TEST_F(TypedLines, AQuestionMarkShowsTheErrorWhereNothingFits) {
  client.Type("nonsense ?");
  EXPECT_TRUE(client.Sees("\r\n     ^\r\n% Unknown command\r\n"));
  EXPECT_TRUE(client.Shows("olt> nonsense "));
}

TEST_F(TypedLines, AnErrorUnderAQuestionMarkHasItsCaretUnderThePlaceAndFitsTheScreen) {
  const std::string help = "\r\n          ^\r\n% Unknown command: expected rows,\r\n  wide, part";
  client.channel()->SetWindow({36, 24});
  client.Type("\rshow x ?");
  EXPECT_TRUE(client.Sees(help));
  EXPECT_TRUE(client.Shows("olt> show x "));
}

TEST_F(TypedLines, AnErrorUnderAQuestionMarkInALineThatWrappedShowsThePlaceAgain) {
  client.Type("show x " + std::string(80, 'w') + "\x01" + std::string(4, '\x06') + "\x06\x06\x06?");
  EXPECT_TRUE(client.Sees("\r\n  show x \r\n       ^\r\n% Unknown command: expected"));
}

TEST_F(TypedLines, AQuestionMarkIsTextInQuotesAndRemarks) {
  client.Type("say \"why?\"\r");
  EXPECT_TRUE(client.Sees("\r\nwhy?\r\n"));
  client.Type("  ! why?");
  EXPECT_TRUE(client.Shows("olt>   ! why?"));
}

TEST_F(TypedLines, HelpInTheMiddleOfAWrappedLineComesBehindAllOfIt) {
  const std::string word(170, 'w');
  client.Type("say \"\" " + word + "\x01\x1b[C\x1b[C\x1b[C\x1b[C?");
  EXPECT_TRUE(client.Sees("the word\r\n"));
  EXPECT_TRUE(client.Await([this, &word] {
    std::string joined;
    for (const std::string& line : client.screen().Lines()) joined += line;
    const std::size_t help = joined.find("the word");
    return help != std::string::npos &&
           joined.find("olt> say \"\" " + word, help) != std::string::npos;
  })) << client.screen().Text();
}

TEST_F(TypedLines, BeyondTheLimitAreRefusedWholeWithOneBell) {
  client.Type("say " + std::string(5000, 'x'));
  EXPECT_TRUE(client.Await([this] { return client.screen().bells() == 1; }));
  client.Type("\r");
  EXPECT_TRUE(client.Sees("\r\n% Line too long: the limit is 4096 bytes\r\nolt> "));
  EXPECT_EQ(1U, client.screen().bells());
  client.Type("say short\r");
  EXPECT_TRUE(client.Sees("\r\nshort\r\n"));
}

TEST_F(TypedLines, OfExactlyTheLimitAreRun) {
  client.Type("terminal length 0\rsay " + std::string(4092, 'x') + "\r");
  EXPECT_TRUE(client.Sees("\r\n" + std::string(4092, 'x') + "\r\n"));
  EXPECT_EQ(0U, client.screen().bells());
}

TEST_F(TypedLines, AreCountedInBytes) {
  std::string umlauts;
  for (int i = 0; i < 2047; ++i) umlauts += "\xc3\xa4";
  client.Type("say " + umlauts + "\r");
  EXPECT_TRUE(client.Sees("% Line too long"));
}

TEST_F(TypedLines, ALineThatWasTooLongAndIsErasedIsForgotten) {
  client.Type("say " + std::string(5000, 'x') + "\x15say short\r");
  EXPECT_TRUE(client.Sees("\r\nshort\r\n"));
}

TEST_F(TypedLines, YankingDoesNotGrowALineWithoutEnd) {
  client.Type("terminal length 0\rsay " + std::string(2000, 'x'));
  for (int i = 0; i < 20; ++i) client.Type("\x15\x19\x19");  // would double it every time
  client.Type("\x15say short\r");
  EXPECT_TRUE(client.Sees("\r\nshort\r\n"));
  EXPECT_LT(client.bytes().size(), 1U << 20U);
}

TEST_F(TypedLines, CompletionDoesNotGrowALineBeyondTheLimit) {
  client.Type(std::string(4094, 'x') + "\x01sh\t\r");
  EXPECT_TRUE(client.Sees("% Unknown command"));
}

TEST_F(TypedLines, AMegabyteWithoutABreakIsOneLineTooLong) {
  client.Type(std::string(1 << 20, 'm') + "\r");
  EXPECT_TRUE(client.Sees("% Line too long"));
}

TEST_F(TypedLines, BinaryNoiseEndsNothing) {
  std::string noise;
  unsigned int state = 12345;
  for (int i = 0; i < 60000; ++i) {
    state = state * 1103515245U + 12345U;
    const char byte = static_cast<char>(state >> 16U);
    // What would end the session, or hold it.
    if (byte != '\x04' && byte != 'w') noise += byte;
  }
  client.Type(noise + "\x07\x03\r\x03say alive\r");
  EXPECT_TRUE(client.Sees("\r\nalive\r\n"));
}

TEST_F(TypedLines, StandInWindowsOfEverySize) {
  for (const Channel::Window window :
       {Channel::Window{1, 1}, Channel::Window{0, 0}, Channel::Window{10, 2},
        Channel::Window{40, 5}, Channel::Window{300, 100}, Channel::Window{65535, 65535}}) {
    Client other(std::make_shared<Channel>(), window);
    Open(other);
    other.Type("say " + std::string(300, 'x') + "\x01\x05\x01\x1b[C\x05\x15say a\r");
    EXPECT_TRUE(other.Sees("\r\na\r\n")) << window.columns << "x" << window.rows;
    other.Type("terminal length 0\rshow ?\x03sh\t\t?\x03say b\r");
    EXPECT_TRUE(other.Sees("\r\nb\r\n")) << window.columns << "x" << window.rows;
  }
}

// In a window that the line fills more than once, whatever has moved the cursor before.
TEST_F(TypedLines, GrowWhereTheWindowIsFull) {
  for (const Channel::Window window :
       {Channel::Window{10, 2}, Channel::Window{40, 5}, Channel::Window{80, 24}}) {
    const std::size_t fills = std::size_t{window.columns} * (window.rows + 3);
    const std::string xs(fills, 'x');
    const std::string ys(fills / 2, 'y');
    for (const char* moves : {"", "\x01\x05", "\x1b[1;5D\x05", "\x01\x0b\x19", "\x10\x0e"}) {
      Client other(std::make_shared<Channel>(), window);
      Open(other);
      std::string typed = xs;
      typed += moves;
      typed += ys;
      std::string said = xs;
      said += ys;
      other.Type("terminal length 0\rsay " + typed + "\r");
      EXPECT_TRUE(other.Sees("\r\n" + said + "\r\n"))
          << window.columns << "x" << window.rows << testing::PrintToString(moves);
    }
  }
}

TEST_F(TypedLines, FollowTheWindow) {
  client.channel()->SetWindow({20, 10});
  client.Type("\rsay aaaaaaaaaabbbbbbbbbbcccccccccc");
  EXPECT_TRUE(client.Sees("aaaaaaaaaab"));
  EXPECT_TRUE(client.Sees("cccccccccc"));
  client.Type("\r");
  EXPECT_TRUE(client.Sees("\r\naaaaaaaaaabbbbbbbbbbcccccccccc\r\n"));
}

}  // namespace
}  // namespace olt_host
