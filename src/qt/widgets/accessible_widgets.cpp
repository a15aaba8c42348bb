#include "qt/widgets/accessible_widgets.h"

#include <QAccessibleWidget>
#include <QCoreApplication>

#include "qt/widgets/clickable_text.h"
#include "qt/widgets/notice_line.h"
#include "qt/widgets/signal_meter.h"
#include "qt/widgets/svg_picture.h"
#include "qt/widgets/zone_view.h"

namespace quillmark {

namespace {

// A text that may be clicked: a value of the radio, which then is a button, or the caption that
// explains it.
class AccessibleText : public QAccessibleWidget {
 public:
  AccessibleText(ClickableText* text, QAccessible::Role whileLive)
      : QAccessibleWidget(text), shown(text), liveRole(whileLive) {}

  QAccessible::Role role() const override {
    return shown->IsClickable() ? liveRole : QAccessible::StaticText;
  }

  QString text(QAccessible::Text which) const override {
    if (which == QAccessible::Value && !shown->accessibleName().isEmpty()) return shown->text();
    if (which == QAccessible::Name && shown->accessibleName().isEmpty()) return shown->text();
    return QAccessibleWidget::text(which);
  }

  QStringList actionNames() const override {
    QStringList names;
    if (shown->IsClickable() && shown->isEnabled()) names << pressAction();
    return names + QAccessibleWidget::actionNames();
  }

  void doAction(const QString& name) override {
    if (name != pressAction()) return QAccessibleWidget::doAction(name);
    if (shown->IsClickable() && shown->isEnabled()) emit shown->Clicked();
  }

 private:
  ClickableText* shown;
  QAccessible::Role liveRole;
};

// A notice speaks up when it comes.
class AccessibleNotice : public QAccessibleWidget {
 public:
  explicit AccessibleNotice(NoticeLine* line)
      : QAccessibleWidget(line, QAccessible::AlertMessage), notice(line) {}

  QStringList actionNames() const override {
    return notice->IsClickable() ? QStringList{pressAction()} : QStringList{};
  }

  void doAction(const QString& name) override {
    if (name == pressAction() && notice->IsClickable()) notice->click();
  }

 private:
  NoticeLine* notice;
};

// A zone with its figures in words.
class AccessibleZone : public QAccessibleWidget {
 public:
  explicit AccessibleZone(ZoneView* view)
      : QAccessibleWidget(view, QAccessible::Chart), zone(view) {}

  QString text(QAccessible::Text which) const override {
    return which == QAccessible::Value ? zone->accessibleDescription()
                                       : QAccessibleWidget::text(which);
  }

 private:
  ZoneView* zone;
};

// The signal level on its scale.
class AccessibleMeter : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit AccessibleMeter(SignalMeter* shown)
      : QAccessibleWidget(shown, QAccessible::ProgressBar), meter(shown) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  QString text(QAccessible::Text which) const override {
    if (which != QAccessible::Value) return QAccessibleWidget::text(which);
    return QCoreApplication::translate("SignalMeter", "%1 %").arg(meter->Percent());
  }

  QVariant currentValue() const override { return meter->Percent(); }
  void setCurrentValue(const QVariant&) override {}
  QVariant minimumValue() const override { return 0; }
  QVariant maximumValue() const override { return 100; }
  QVariant minimumStepSize() const override { return 1; }

 private:
  SignalMeter* meter;
};

QAccessibleInterface* MakeFor(const QString&, QObject* object) {
  if (auto* value = qobject_cast<ValueBox*>(object)) {
    return new AccessibleText(value, QAccessible::Button);
  }
  if (auto* caption = qobject_cast<CaptionLabel*>(object)) {
    return new AccessibleText(caption, QAccessible::StaticText);
  }
  if (auto* notice = qobject_cast<NoticeLine*>(object)) return new AccessibleNotice(notice);
  if (auto* zone = qobject_cast<ZoneView*>(object)) return new AccessibleZone(zone);
  if (auto* picture = qobject_cast<SvgPicture*>(object)) {
    return new QAccessibleWidget(picture, QAccessible::Graphic);
  }
  if (auto* meter = qobject_cast<SignalMeter*>(object)) return new AccessibleMeter(meter);
  return nullptr;
}

}  // namespace

void MakeOurWidgetsAccessible() {
  QAccessible::removeFactory(MakeFor);
  QAccessible::installFactory(MakeFor);
}

}  // namespace quillmark
