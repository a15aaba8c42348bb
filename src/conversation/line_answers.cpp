#include "conversation/line_answers.h"

#include <algorithm>
#include <iterator>

#include "conversation/reply.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr std::size_t mostWaiting = 32;
constexpr std::size_t longestLine = 300;

bool IsTaken(const std::string& text) { return Contains(text, "PROGRAMMED OK"); }

bool IsAnswer(const std::string& text) {
  return IsTaken(text) || IsRefusal(text) || Contains(text, "SELECTED OPTION") ||
         Contains(text, "PROGRAMMABLE ONLY");
}

}  // namespace

void LineAnswers::Sent(const std::string& line) {
  if (line.empty()) return;
  if (waiting.size() == mostWaiting) waiting.pop_front();
  waiting.push_back({line});
}

void LineAnswers::Clear() {
  waiting.clear();
  current.clear();
}

void LineAnswers::Hear(char byte) {
  if (byte == '\n') {
    EndLine();
  } else if (byte != '\r' && current.size() < longestLine) {
    current += byte;
  }
}

void LineAnswers::EndLine() {
  if (!current.empty() && !TakeEcho()) {
    const auto line = Oldest();
    if (line != waiting.end()) line->Answer = current;
  }
  current.clear();
}

bool LineAnswers::TakeEcho() {
  const auto line = std::ranges::find_if(
      waiting, [this](const Waiting& each) { return !each.Echoed && each.Line == current; });
  if (line == waiting.end()) return false;
  line->Echoed = true;
  // The prompt in front of this echo was lost.
  const auto before = Oldest();
  if (before != line && !before->Answer.empty()) Close(before);
  return true;
}

std::deque<LineAnswers::Waiting>::iterator LineAnswers::Oldest() {
  return std::ranges::find(waiting, true, &Waiting::Echoed);
}

void LineAnswers::SeePrompt() {
  current.clear();
  const auto line = Oldest();
  if (line != waiting.end()) Close(line);
}

// What was sent before it has lost its echo.
void LineAnswers::Close(const std::deque<Waiting>::iterator& line) {
  const Waiting closed = *line;
  waiting.erase(waiting.begin(), std::next(line));
  if (!OnAnswer || !IsAnswer(closed.Answer)) return;
  OnAnswer(closed.Line,
           {.Taken = IsTaken(closed.Answer), .Words = std::string(Trim(closed.Answer))});
}

}  // namespace quillmark
