#include "config/editor/config_file.h"

#include <fstream>
#include <iterator>

#include "config/config_keys.h"
#include "config/config_lines.h"
#include "config/replaced_file.h"
#include "text/path_text.h"

namespace quillmark {

ConfigFile ReadConfigFile(const std::filesystem::path& path) {
  // It has looked at the file's kind and size when it refuses nothing.
  const ConfigText text = ReadConfigText(path, MostEditedLines);
  if (!text.Refusal.empty()) return {{}, text.Refusal};
  if (!IsConfiguration(text.Lines)) {
    return {{},
            "The file " + PathText(path) +
                "\r\nholds no setting of a radio.\r\n\r\nNothing was taken from it."};
  }
  constexpr std::size_t most = (MostEditedLines + 1) * (LongestConfigLine + 2);
  std::ifstream file(path, std::ios::binary);
  std::string bytes(most, '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  return {bytes, {}};
}

void WriteConfigFile(const std::filesystem::path& path, const std::string& bytes,
                     const std::filesystem::path& dataFolder) {
  ReplacedFile file(path, dataFolder);
  file.Bytes(bytes);
  file.Complete();
}

}  // namespace quillmark
