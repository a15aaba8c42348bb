#include "surroundings.h"

#include <QCoreApplication>
#include <QFile>
#include <stdexcept>

#include "desk.h"
#include "processor_time.h"

namespace quillmark::bench {

namespace fs = std::filesystem;

namespace {

// A variable of the environment and the folder that it names.
struct Folder {
  const char* Variable;
  const char* Name;
};

constexpr Folder folders[] = {{"XDG_CONFIG_HOME", "config"},
                              {"XDG_DATA_HOME", "data"},
                              {"XDG_CACHE_HOME", "cache"},
                              {"XDG_RUNTIME_DIR", "runtime"}};

}  // namespace

Surroundings::Surroundings() {
  if (!folder.isValid()) throw std::runtime_error("no temporary folder can be made");
  for (const Folder& each : folders) {
    const fs::path path = File(each.Name);
    fs::create_directory(path);
    fs::permissions(path, fs::perms::owner_all);
    qputenv(each.Variable, QByteArray(path.c_str()));
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
}

fs::path Surroundings::File(const std::string& name) const {
  return fs::path(folder.path().toStdString()) / name;
}

fs::path Surroundings::ThisProgram() { return fs::read_symlink("/proc/self/exe"); }

fs::path Surroundings::Program(const std::string& name) const {
  fs::path program = ThisProgram().parent_path() / name;
  if (!fs::exists(program)) throw std::runtime_error(name + " is not built beside this program");
  return program;
}

double Surroundings::IdleRate() {
  if (!idleRate) {
    Desk desk(*this, "");
    desk.ShowMain();
    desk.RunFor(Seconds(1));  // the first painting is over by then
    const Moment begin = Now();
    desk.RunFor(Seconds(5));
    idleRate = RateBetween(begin, Now());
  }
  return *idleRate;
}

}  // namespace quillmark::bench
