#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "history/copy_store.h"
#include "history/listed_copy.h"
#include "platform/platform.h"

namespace quillmark {

// What the user does with copies that they have chosen: comparing, pinning, naming, exporting,
// deleting. A copy may have changed or gone since it was listed: each act looks at its file again,
// and tells when it can't be done. Everything given to it outlives it.
class CopyActs {
 public:
  CopyActs(Platform& platform, const CopyStore& store) : platform(platform), store(store) {}

  // Shows two of them, the older one first.
  void Compare(const ListedCopy& older, const ListedCopy& newer);
  // Shows one beside what the radio held at its last read.
  void CompareWithRadio(const ListedCopy& copy, const RadioCopy& radio);
  // Pins them, or unpins them when all are pinned.
  void Pin(const std::vector<ListedCopy>& copies);
  void AskName(const ListedCopy& copy);
  void Export(const ListedCopy& copy);
  void Delete(const std::vector<ListedCopy>& copies);

 private:
  // Nothing, with a box, when it can't be compared any more.
  std::optional<ConfigValues> ValuesIn(const ListedCopy& copy);
  // Ends with a box at the first one that fails.
  void ForEach(const std::vector<ListedCopy>& copies, const std::string& title,
               const std::function<void(const ListedCopy&)>& act);
  bool MayReplace(const std::filesystem::path& path);

  Platform& platform;
  const CopyStore& store;
};

}  // namespace quillmark
