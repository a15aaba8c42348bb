#pragma once

#include <memory>
#include <string>

class QCoreApplication;

namespace quillmark {

// What a program without a display needs of Qt before all else. Made once, at the start of main,
// and outlives all other parts; `argc` and `argv` outlive it.
class BaseApplication {
 public:
  // `name` stands in front of what goes to stderr.
  BaseApplication(int& argc, char** argv, const std::string& name);
  ~BaseApplication();

 private:
  std::unique_ptr<QCoreApplication> application;
};

}  // namespace quillmark
