#include "qt/desktop/desktop_scheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFileInfo>

namespace quillmark {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settings = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");

constexpr uint preferDark = 1;

// A call without a bus would start one.
bool HasBus() {
  return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
         QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

}  // namespace

DesktopScheme::DesktopScheme() {
  if (!HasBus()) return;
  QDBusConnection::sessionBus().connect(service, path, settings, QStringLiteral("SettingChanged"),
                                        this, SLOT(SettingChanged(QString, QString, QDBusVariant)));
  Ask();
}

// The answer may take its time: a desktop can start its service for it.
void DesktopScheme::Ask() {
  QDBusMessage question =
      QDBusMessage::createMethodCall(service, path, settings, QStringLiteral("Read"));
  question << appearance << colorScheme;
  auto* answer =
      new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
    const QDBusPendingReply<QDBusVariant> reply = *answer;
    if (!reply.isError()) Take(reply.value().variant());
    answer->deleteLater();
  });
}

void DesktopScheme::SettingChanged(const QString& space, const QString& key,
                                   const QDBusVariant& value) {
  if (space == appearance && key == colorScheme) Take(value.variant());
}

// An answer has one more wrapping than the news of a change.
void DesktopScheme::Take(const QVariant& scheme) {
  const QVariant bare =
      scheme.canConvert<QDBusVariant>() && scheme.userType() == qMetaTypeId<QDBusVariant>()
          ? scheme.value<QDBusVariant>().variant()
          : scheme;
  const bool dark = bare.toUInt() == preferDark;
  if (dark == prefersDark) return;
  prefersDark = dark;
  emit Changed();
}

}  // namespace quillmark
