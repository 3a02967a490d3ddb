// One question before and after a change, about one key: what a short way keeps from
// the first must not outlive the change.
#include "operation_choice.h"
#include "texts.h"

namespace {

const Operation& PickQuestion(RandomNumbers& random) {
  static const Operations questions =
      Collect({LookupOperations(), QueryOperations(), MatchOperations()});
  return PickOperation(questions, random);
}

// None that creates or destroys tables: nothing would be left to ask.
const Operation& PickChange(RandomNumbers& random, bool settled) {
  static const Operations changes = Collect({StoredProfileOperations(), RegistryOperations()});
  while (true) {
    const Operation& change = PickOperation(changes, random);
    if (!settled || !change.unsettles) {
      return change;
    }
  }
}

void AskTwice(Stage& stage, HostileInput& random, bool settled) {
  const Operation& question = PickQuestion(random);
  const unsigned int key = stage.Key(random);
  const std::uint64_t seed = random.Next();
  stage.Say(Words(question.name, " before and after a change, key ", key));
  stage.favourite = key;
  HostileInput first(seed);
  question.run(stage, first);
  const unsigned int count = 1 + random.Below(2);
  for (unsigned int i = 0; i < count; ++i) {
    PickChange(random, settled).run(stage, random);
  }
  HostileInput second(seed);
  question.run(stage, second);
  stage.favourite.reset();
}

void AskTwiceOfSettled(Stage& stage, HostileInput& random) { AskTwice(stage, random, true); }
void AskTwiceOfAny(Stage& stage, HostileInput& random) { AskTwice(stage, random, false); }

}  // namespace

std::vector<Operation> RepeatedQuestions() {
  return {
      {"question repeated", 20, AskTwiceOfSettled},
      {"question repeated at odds", 10, AskTwiceOfAny, false, true},
  };
}
