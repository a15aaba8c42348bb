#include "qt/ini_preference_store.h"

#include <QFile>
#include <QLockFile>
#include <QSaveFile>
#include <QString>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <system_error>

#include "qt/latin1.h"
#include "qt/qt_desktop.h"

namespace quillmark {

namespace {

constexpr int longestLockWait = 1000;  // ms

QString NameOf(const std::filesystem::path& path) {
  return QFile::decodeName(QByteArray::fromStdString(path.string()));
}

std::string ToUtf8(const std::string& latin1) { return ToQt(latin1).toStdString(); }

// A file in another encoding than UTF-8 is taken byte by byte.
std::string FromUtf8(const std::string& text) {
  const QString read = QString::fromStdString(text);
  return read.contains(QChar::ReplacementCharacter) ? text : FromQt(read);
}

}  // namespace

std::filesystem::path IniPreferenceStore::UsualFile() {
  return UserFolder("XDG_CONFIG_HOME", ".config") / "preferences.ini";
}

IniPreferenceStore::IniPreferenceStore(std::filesystem::path path) : file(std::move(path)) {
  Reload();
}

void IniPreferenceStore::Reload() {
  std::error_code failure;
  if (!std::filesystem::is_regular_file(file, failure)) {
    ini = IniFile();
    return;
  }
  std::ifstream stream(file, std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  if (!stream) Complain("cannot be read; the defaults hold");
  ini = IniFile(text);
  if (ini.Damaged()) Complain("is damaged; the defaults hold");
}

std::string IniPreferenceStore::Read(const std::string& section, const std::string& key,
                                     const std::string& fallback) const {
  const std::string* value = ini.Value(ToUtf8(section), ToUtf8(key));
  return value == nullptr ? fallback : FromUtf8(*value);
}

void IniPreferenceStore::Write(const std::string& section, const std::string& key,
                               const std::string& value) {
  WritePaths({{ToUtf8(section), ToUtf8(key), ToUtf8(value)}});
}

std::string IniPreferenceStore::ReadPath(const std::string& section, const std::string& key) const {
  const std::string* value = ini.Value(section, key);
  return value == nullptr ? std::string() : *value;
}

void IniPreferenceStore::WritePaths(const std::vector<Entry>& entries) {
  std::error_code failure;
  std::filesystem::create_directories(file.parent_path(), failure);
  QLockFile lock(NameOf(file) + QStringLiteral(".lock"));
  lock.tryLock(longestLockWait);
  const IniFile before = std::move(ini);
  Reload();
  if (ini.Damaged()) {
    KeepDamagedFile();
    ini = before.Damaged() ? IniFile() : before;
  }
  for (const Entry& entry : entries) ini.Set(entry.Section, entry.Key, entry.Value);
  if (!Save(ini.Text())) Complain("cannot be written; changes last until the program ends");
}

bool IniPreferenceStore::Save(const std::string& text) {
  std::error_code failure;
  const auto status = std::filesystem::status(file, failure);
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) return false;
  QSaveFile target(NameOf(file));
  if (!target.open(QIODevice::WriteOnly)) return false;
  const auto size = static_cast<qint64>(text.size());
  if (target.write(text.data(), size) != size) {
    target.cancelWriting();
    return false;
  }
  return target.commit();
}

void IniPreferenceStore::KeepDamagedFile() {
  auto aside = file;
  aside += ".bak";
  std::error_code failure;
  std::filesystem::rename(file, aside, failure);
}

void IniPreferenceStore::Complain(const std::string& what) {
  if (complained) return;
  complained = true;
  std::fprintf(stderr, "quillmark-console: the preferences file %s %s\n", file.c_str(),
               what.c_str());
}

}  // namespace quillmark
