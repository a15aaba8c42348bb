#pragma once

#include <QDBusVariant>
#include <QObject>

namespace quillmark {

// Whether the desktop asks programs to be dark. Many desktops tell that over the user's message bus
// alone, and not through the colours that Qt gets from them. Without a bus nothing is asked.
class DesktopScheme : public QObject {
  Q_OBJECT

 public:
  DesktopScheme();

  // False as long as the desktop has not answered.
  bool PrefersDark() const { return prefersDark; }

 signals:
  void Changed();

 private slots:
  void SettingChanged(const QString& space, const QString& key, const QDBusVariant& value);

 private:
  void Ask();
  void Take(const QVariant& scheme);

  bool prefersDark = false;
};

}  // namespace quillmark
