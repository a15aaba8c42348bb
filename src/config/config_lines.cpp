#include "config/config_lines.h"

#include <algorithm>
#include <fstream>
#include <system_error>

#include "text/path_text.h"
#include "text/text.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

// Cuts the bytes of a file into lines.
class LineCutter {
 public:
  LineCutter(std::vector<std::string>& into, std::size_t most) : lines(into), mostLines(most) {}

  // False when the text is refused from here on.
  bool Take(char byte) {
    const bool pairEnd = byte == '\n' && previous == '\r';
    previous = byte;
    if (pairEnd) return true;
    if (byte == '\r' || byte == '\n') return EndLine();
    const auto code = static_cast<unsigned char>(byte);
    if (code < 32 || code == 127) return true;
    line += byte;
    return line.size() <= LongestConfigLine;
  }
  // A last line without a line end.
  bool Finish() { return line.empty() || EndLine(); }

  bool LineTooLong() const { return line.size() > LongestConfigLine; }

 private:
  bool EndLine() {
    if (lines.size() == mostLines) return false;
    lines.push_back(std::move(line));
    line.clear();
    return true;
  }

  std::vector<std::string>& lines;
  std::size_t mostLines;
  std::string line;
  char previous = 0;
};

std::string WithoutMark(std::string head) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  if (head.starts_with(byteOrderMark)) head.erase(0, byteOrderMark.size());
  return head;
}

std::string Refused(const fs::path& path, const std::string& why) {
  return "The file " + PathText(path) + "\r\n" + why + "\r\n\r\nNothing was taken from it.";
}

// Takes the lines of an open file, or tells in `text` why not.
void TakeLines(const fs::path& path, std::istream& file, std::size_t mostLines, ConfigText& text) {
  LineCutter cutter(text.Lines, mostLines);
  // What is dropped from lines counts too: a file of such bytes alone would be read for hours.
  const std::size_t mostBytes = (mostLines + 1) * (LongestConfigLine + 2);
  std::size_t bytes = 0;
  bool taken = true;
  std::string chunk(4096, '\0');
  for (bool first = true; taken && file; first = false) {
    file.read(chunk.data(), static_cast<std::streamsize>(chunk.size()));
    std::string part = chunk.substr(0, static_cast<std::size_t>(file.gcount()));
    if (first) part = WithoutMark(std::move(part));
    bytes += part.size();
    taken = bytes <= mostBytes &&
            std::all_of(part.begin(), part.end(), [&](char byte) { return cutter.Take(byte); });
  }
  if (taken && file.bad()) {
    text.Refusal = Refused(path, "can't be read to its end.");
  } else if (!taken || !cutter.Finish()) {
    text.Refusal = Refused(
        path, cutter.LineTooLong()
                  ? "has a line of more than " + std::to_string(LongestConfigLine) + " characters."
              : bytes > mostBytes ? "is too large for a configuration."
                                  : "has more than " + std::to_string(mostLines) + " lines.");
  }
}

}  // namespace

ConfigText ReadConfigText(const fs::path& path, std::size_t mostLines) {
  ConfigText text;
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (!fs::is_regular_file(status)) {
    text.Refusal = Refused(path, "is no plain file, and can't be read as a configuration.");
    return text;
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    text.Refusal = Refused(path, "can't be opened: you may have no right to read it.");
    return text;
  }
  TakeLines(path, file, mostLines, text);
  return text;
}

void ShowRefusal(Dialogs& dialogs, const std::string& refusal) {
  dialogs.Message({refusal, "File Error", Icon::Exclamation});
}

bool IsComment(std::string_view line) { return line.starts_with('#'); }

bool IsSavedConfig(const std::vector<std::string>& lines) {
  return std::any_of(lines.begin(), lines.end(), [](const std::string& line) {
    return Contains(line, "With Firmware Version:");
  });
}

std::optional<std::string> AlarmSenseValue(std::string_view line) {
  constexpr std::string_view word = "ALARM ACTIVE";
  if (FindAnyCase(line, word) != 1) return std::nullopt;
  std::string_view rest = line.substr(word.size());
  if (rest.starts_with(':')) rest.remove_prefix(1);
  return std::string(Trim(rest));
}

}  // namespace quillmark
