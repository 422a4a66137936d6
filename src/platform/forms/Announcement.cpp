#include "platform/forms/Announcement.h"

#include <QAccessible>
#include <QWidget>
#include <utility>

#include "platform/forms/Control.h"

namespace {

std::function<void(const QString&)>& Listener() {
  static std::function<void(const QString&)> listener;
  return listener;
}

}  // namespace

void Announce(const Control& control) {
  if (Listener()) return Listener()(control.Widget()->accessibleName());
  QObject* object = control.Widget();
  // Some readers follow the alert, some only a name that changed.
  for (const QAccessible::Event kind : {QAccessible::NameChanged, QAccessible::Alert}) {
    QAccessibleEvent event(object, kind);
    QAccessible::updateAccessibility(&event);
  }
}

void HearAnnouncements(std::function<void(const QString&)> listener) {
  Listener() = std::move(listener);
}
