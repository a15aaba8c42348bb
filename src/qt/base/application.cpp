#include "qt/base/application.h"

#include <QCoreApplication>

namespace quillmark {

BaseApplication::BaseApplication(int& argc, char** argv, const std::string& name)
    : application(std::make_unique<QCoreApplication>(argc, argv)) {
  QCoreApplication::setApplicationName(QString::fromStdString(name));
}

BaseApplication::~BaseApplication() = default;

}  // namespace quillmark
