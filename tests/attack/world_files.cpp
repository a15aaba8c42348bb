// The files that a case of the attack leaves.

#include <filesystem>

#include "attack/world.h"
#include "file_text.h"

namespace quillmark::attack {

namespace fs = std::filesystem;

namespace {

constexpr const char* copiesFolder = "data/radios";

}  // namespace

Tree World::Files() const {
  Tree tree;
  for (const auto& entry : fs::recursive_directory_iterator(ScratchFolder())) {
    const std::string name = fs::relative(entry.path(), ScratchFolder()).string();
    if (name.starts_with("shipped") || name.starts_with(copiesFolder)) continue;
    tree[name] = entry.is_directory() ? "(folder)" : FileText(entry.path());
  }
  return tree;
}

Tree World::Copies() const {
  Tree tree;
  const fs::path folder = ScratchFolder() / copiesFolder;
  if (!fs::exists(folder)) return tree;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_directory()) tree[entry.path().string()] = FileText(entry.path());
  }
  return tree;
}

}  // namespace quillmark::attack
