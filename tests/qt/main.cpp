#include <gmock/gmock.h>

#include <QApplication>
#include <QTemporaryDir>

// The shell's tests: Qt without a screen, and folders of their own instead of the person's.
int main(int argc, char* argv[]) {
  testing::InitGoogleMock(&argc, argv);
  const QTemporaryDir home;
  for (const char* variable :
       {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
    qputenv(variable, home.path().toLocal8Bit());
  }
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
