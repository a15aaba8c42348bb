#include "qt/store/ini_preference_store.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QFile>
#include <QLockFile>
#include <QSaveFile>
#include <QString>
#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <system_error>

#include "config/replaced_file.h"
#include "qt/base/program_files.h"
#include "qt/text/latin1.h"

namespace quillmark {

namespace {

constexpr int mostDamagedFiles = 20;
constexpr int longestLockWait = 100;  // ms; the window does not react meanwhile

QString NameOf(const std::filesystem::path& path) {
  return QFile::decodeName(QByteArray::fromStdString(path.string()));
}

std::string ToUtf8(const std::string& latin1) { return ToQt(latin1).toStdString(); }

// A file in another encoding than UTF-8 is taken byte by byte.
std::string FromUtf8(const std::string& text) {
  const QString read = QString::fromStdString(text);
  return read.contains(QChar::ReplacementCharacter) ? text : FromQt(read);
}

// Some file systems tell only now that there is no room. Some do not support the call.
bool OnDisk(int handle) { return fsync(handle) == 0 || errno == EINVAL || errno == ENOTSUP; }

}  // namespace

std::filesystem::path IniPreferenceStore::UsualFile() { return ConfigFolder() / "preferences.ini"; }

// How one kind of trouble is told.
struct IniPreferenceStore::Wording {
  const char* Terminal;  // behind the file's name
  const char* Text;
  const char* Consequence;  // behind the file's name
};

// In the order of Kind.
const IniPreferenceStore::Wording IniPreferenceStore::wordings[kinds] = {
    {"is damaged; the defaults hold", "The preferences file is damaged.",
     " holds more than preferences, so the defaults are used. When you change a preference, the "
     "damaged file is kept beside it with the ending \".bak\" (or \".bak2\" and so on, if there "
     "is one already) and a new one is begun. To have your own preferences back, end the program, "
     "correct the file and start again."},
    {"cannot be read; the defaults hold, and changes last until the program ends",
     "The preferences file cannot be read.",
     " is there, but it cannot be read. The defaults are used, and what you change lasts until "
     "the program ends. See to it that it is a plain file that you may read and write, and start "
     "the program again."},
    {"cannot be written; changes last until the program ends",
     "The preferences file cannot be written.",
     " cannot be written, so what you change lasts until the program ends. See to it that the "
     "disk is not full and that you may write to the file and its folder; the next change is then "
     "saved together with the earlier ones."},
};

IniPreferenceStore::IniPreferenceStore(std::filesystem::path path, Writes where)
    : file(std::move(path)), writes(where) {
  Reload();
}

void IniPreferenceStore::Reload() {
  if (!ReadFile()) Complain(Kind::Unreadable);
  if (ini.Damaged()) Complain(Kind::Damaged);
  ApplyUnsaved();
}

// False, and everything as it was, when there is a file that cannot be read.
bool IniPreferenceStore::ReadFile() {
  std::error_code failure;
  const auto status = std::filesystem::status(file, failure);
  if (status.type() == std::filesystem::file_type::not_found) {
    ini = IniFile();
    return true;
  }
  if (!std::filesystem::is_regular_file(status)) return false;
  const auto size = std::filesystem::file_size(file, failure);
  std::ifstream stream(file, std::ios::binary);
  if (failure || !stream) return false;
  // One byte more than is allowed shows that there are too many.
  std::string text(std::min<std::uintmax_t>(size, IniFile::LargestText) + 1, '\0');
  stream.read(text.data(), static_cast<std::streamsize>(text.size()));
  if (stream.bad()) return false;
  text.resize(static_cast<std::size_t>(stream.gcount()));
  ini = IniFile(text);
  return true;
}

void IniPreferenceStore::ApplyUnsaved() {
  for (const Entry& entry : unsaved) ini.Set(entry.Section, entry.Key, entry.Value);
}

void IniPreferenceStore::NoteUnsaved(const Entry& entry) {
  std::erase_if(unsaved, [&](const Entry& earlier) {
    return earlier.Section == entry.Section && earlier.Key == entry.Key;
  });
  unsaved.push_back(entry);
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
  if (writes == Writes::ToMemory) {
    for (const Entry& entry : entries) NoteUnsaved(entry);
    return ApplyUnsaved();
  }
  std::error_code failure;
  std::filesystem::create_directories(file.parent_path(), failure);
  QLockFile lock(NameOf(file) + QStringLiteral(".lock"));
  // Several writes in a row wait for a foreign lock once.
  lockIsForeign = !lock.tryLock(lockIsForeign ? 0 : longestLockWait);
  for (const Entry& entry : entries) NoteUnsaved(entry);
  const IniFile before = ini;
  if (!ReadFile()) {
    ApplyUnsaved();
    return Complain(Kind::Unreadable);
  }
  bool mayReplace = true;
  if (ini.Damaged()) {
    Complain(Kind::Damaged);
    mayReplace = KeepDamagedFile();
    ini = before.Damaged() ? IniFile() : before;
  }
  ApplyUnsaved();
  if (!mayReplace || !Save(ini.Text())) return Complain(Kind::Unwritable);
  unsaved.clear();
}

bool IniPreferenceStore::Save(const std::string& text) {
  QSaveFile target(NameOf(file));
  if (!target.open(QIODevice::WriteOnly)) return false;
  const auto size = static_cast<qint64>(text.size());
  // A write only fills a buffer: whether the disk has room shows when that is emptied.
  if (target.write(text.data(), size) != size || !target.flush() ||
      target.error() != QFileDevice::NoError || !OnDisk(target.handle())) {
    target.cancelWriting();
    return false;
  }
  return target.commit();
}

bool IniPreferenceStore::KeepDamagedFile() {
  std::error_code failure;
  // The first ones stay: they are the likeliest to hold what somebody wants back.
  std::filesystem::rename(file, FreeBackupName(file, mostDamagedFiles), failure);
  return !failure;
}

void IniPreferenceStore::Complain(Kind kind) {
  const auto index = static_cast<std::size_t>(kind);
  if (complained[index]) return;
  complained[index] = true;
  std::fprintf(stderr, "%s: the preferences file %s %s\n",
               qPrintable(QCoreApplication::applicationName()), file.c_str(),
               wordings[index].Terminal);
  Tell(kind);
}

void IniPreferenceStore::Tell(Kind kind) const {
  const Wording& wording = wordings[static_cast<std::size_t>(kind)];
  if (onTrouble) {
    onTrouble({wording.Text, "The file " + FromQt(NameOf(file)) + wording.Consequence});
  }
}

void IniPreferenceStore::TellTroubles(std::function<void(const Trouble&)> listener) {
  onTrouble = std::move(listener);
  for (std::size_t kind = 0; kind < kinds; ++kind) {
    if (complained[kind]) Tell(static_cast<Kind>(kind));
  }
}

}  // namespace quillmark
