#include "conversation/reply.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace quillmark {
namespace {

using State = Reply::State;

TEST(Reply, IsCutBetweenEchoAndPrompt) {
  const struct {
    const char *Received, *Word;
    State Came;
    std::optional<std::string> Value;
    int Earlier = 0;
    bool Echo = true;
  } cases[] = {
      {" ser\r\nSN 00123456\r\n>", "ser", State::Whole, "SN 00123456"},
      {" show sync\r\nA > B\r\nSETUP>", "show sync", State::Whole, "A > B"},
      {" show sync\r\nA > B\r\n>", "show sync", State::Whole, ""},
      {" owm\r\nx>y\r\n>", "owm", State::Whole, std::nullopt},
      {" owm\r\nabc>y\r\n>", "owm", State::Whole, "a"},
      {" ser\r\n\r\n>", "ser", State::Whole, ""},
      {" srev\r\n77-1234A01\r\n3.2.0\r\n>", "srev", State::Whole, "77-1234A01\r\n3.2.0"},
      // What is there of an earlier reply.
      {" late\r\n>unit\r\nUNIT 1\r\n>", "unit", State::Whole, "UNIT 1"},
      {" >>unit\r\nUNIT 1\r\n>", "unit", State::Whole, "UNIT 1"},
      {" unit\r\n>UNIT 1\r\n>", "unit", State::Bare, ""},
      {.Received = " unit\r\n>>UNIT 1\r\n>",
       .Word = "unit",
       .Came = State::Whole,
       .Value = "UNIT 1",
       .Earlier = 2},
      {.Received = " unit\r\n>\r\nUNIT 1\r\n>",
       .Word = "unit",
       .Came = State::Whole,
       .Value = "UNIT 1",
       .Earlier = 1},
      {" unit\r\nunit\r\nUNIT 1\r\n>", "unit", State::Damaged, ""},
      // Not there yet.
      {" ser\r\nSN", "ser", State::Missing, ""},
      {" ser\r\n>", "ser", State::Bare, ""},
      {"", "ser", State::Missing, ""},
      // The echo has the letters that were sent, and stands at the head of a line.
      {" SER\r\nSN 1\r\n>", "ser", State::Unechoed, ""},
      {" xser\r\nSN 1\r\n>", "ser", State::Unechoed, ""},
      {" \r\nSN 1\r\n>", "ser", State::Unechoed, ""},
      {" own\r\nTown hall\r\n>", "own", State::Whole, "Town hall"},
      // Line ends that were hurt.
      {" ser\r\nSN 1\r>", "ser", State::Damaged, ""},
      {" ser\r\nSN 1\n>", "ser", State::Damaged, ""},
      {" ser\nSN 1\r\n>", "ser", State::Damaged, ""},
      {" ser\rSN 1\r\n>", "ser", State::Damaged, ""},
      {" ser>", "ser", State::Missing, ""},
      // With the echo off.
      {.Received = " \r\nUNIT 1\r\n>",
       .Word = "unit",
       .Came = State::Whole,
       .Value = "UNIT 1",
       .Echo = false},
      {.Received = " unit\r\nUNIT 1\r\n>",
       .Word = "unit",
       .Came = State::Damaged,
       .Value = "",
       .Echo = false},
      {.Received = " \r\n>", .Word = "unit", .Came = State::Bare, .Value = "", .Echo = false},
  };
  for (const auto& each : cases) {
    const Reply reply = FindReply(
        each.Received, {.Command = each.Word, .Echo = each.Echo, .EarlierPrompts = each.Earlier});
    EXPECT_EQ(reply.Came, each.Came) << each.Received;
    EXPECT_EQ(ValueOf(reply), each.Value) << each.Received;
  }
}

TEST(Reply, PromptsStandAtTheHeadOfALine) {
  const struct {
    const char* Received;
    PromptKind AtEnd;
  } cases[] = {
      {"\r\n>", PromptKind::Command},
      {" >", PromptKind::Command},
      {"\r\n>>", PromptKind::Command},
      {"x\r\nSETUP>", PromptKind::Setup},
      {"\r\nLOADER>", PromptKind::Loader},
      {"\r\nMORE>", PromptKind::More},
      {"x>", PromptKind::None},
      {"\r\nxSETUP>", PromptKind::None},
      {"\r\n>x", PromptKind::None},
      {"", PromptKind::None},
  };
  for (const auto& each : cases) EXPECT_EQ(PromptAtEnd(each.Received), each.AtEnd) << each.Received;
}

}  // namespace
}  // namespace quillmark
