// Lines as operators type them: editing keys, history, completion, help.
#include "session/session_fixture.h"

namespace olt_host {
namespace {

class TypedLines : public Sessions {
 protected:
  void SetUp() override {
    ASSERT_TRUE(client.Start(server()));
    ASSERT_TRUE(client.Sees("olt> "));
  }
  Client client;
};

TEST_F(TypedLines, AreEchoedAndRun) {
  client.Type("say hello");
  EXPECT_TRUE(client.Shows("olt> say hello"));
  client.Type("\r");
  EXPECT_TRUE(client.Sees("\r\nhello\r\nolt> "));
}

TEST_F(TypedLines, CanBeEdited) {
  client.Type("ay hexlo\x01s\x05\x02\x02\x08l");
  EXPECT_TRUE(client.Shows("olt> say hello")) << client.bytes();
}

}  // namespace
}  // namespace olt_host
