#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>

namespace quillmark {

// What the radio says to a line that changes something.
struct LineAnswer {
  bool Taken = false;  // "PROGRAMMED OK"; else a refusal
  std::string Words;   // the radio's own
};

// Finds out what the radio says to each line: listens to what goes out and comes in, and disturbs
// neither. The echo tells which line is answered, so that an answer is never taken for that of
// another line. A line whose echo was lost or switched off, or whose answer is none of the radio's
// fixed replies, has none.
class LineAnswers {
 public:
  // Called once a line at most. May be empty.
  std::function<void(const std::string& line, const LineAnswer& answer)> OnAnswer;

  // A line was sent. No secret may come here, nor while the reply to one is due.
  void Sent(const std::string& line);
  void Hear(char byte);
  // What was heard last was a prompt.
  void SeePrompt();
  // What was sent so far has no answer any more.
  void Clear();

 private:
  // A line whose prompt has not come.
  struct Waiting {
    std::string Line;
    bool Echoed = false;
    std::string Answer{};
  };
  void EndLine();
  bool TakeEcho();
  // The oldest line that has been echoed, or the end.
  std::deque<Waiting>::iterator Oldest();
  void Close(const std::deque<Waiting>::iterator& line);

  std::deque<Waiting> waiting;
  std::string current;  // of the line that is coming in
};

}  // namespace quillmark
