#include "config/save_outcome.h"

#include "text/path_text.h"

namespace quillmark {

namespace {

std::string Settings(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " setting" : " settings");
}

}  // namespace

std::string SavedSentence(std::size_t settings, const std::filesystem::path& file) {
  return "Saved " + Settings(settings) + " to " + PathText(file) + ".";
}

std::string InterruptedSentence(std::size_t written, std::size_t expected,
                                const std::filesystem::path& file,
                                const ReplacedFile::Remains& left) {
  const std::string name = PathText(file);
  if (!left.Shortened) return "The save was interrupted. " + name + " is what it was before.";
  std::string text =
      "The save was interrupted. " + name + " holds " +
      (expected == 0 ? Settings(written) : std::to_string(written) + " of " + Settings(expected));
  if (left.Old.empty()) return text + ".";
  const bool beside = left.Old.parent_path() == file.parent_path();
  return text + ", the old file is " + (beside ? "beside it as " : "kept as ") +
         PathText(beside ? left.Old.filename() : left.Old) + ".";
}

}  // namespace quillmark
