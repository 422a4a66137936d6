#include "platform/forms/AccessibleRole.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace {

constexpr const char* kRole = "accessibleRole";

QAccessibleInterface* InterfaceOfRole(const QString&, QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  const QVariant role = widget == nullptr ? QVariant() : widget->property(kRole);
  if (!role.isValid()) return nullptr;
  return new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()));  // Qt's cache owns it
}

}  // namespace

void SetAccessibleRole(QWidget& widget, QAccessible::Role role) {
  [[maybe_unused]] static const bool installed = [] {
    QAccessible::installFactory(InterfaceOfRole);
    return true;
  }();
  widget.setProperty(kRole, static_cast<int>(role));
}
