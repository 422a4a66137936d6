#include "platform/forms/AccessibleRole.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

#include "platform/forms/SkinButton.h"

namespace {

constexpr const char* kRole = "accessibleRole";

QAccessibleInterface* InterfaceOfRole(const QString& className, QObject* object) {
  if (!HasTypeInformation(className)) return nullptr;
  auto* widget = qobject_cast<QWidget*>(object);
  const QVariant role = widget == nullptr ? QVariant() : widget->property(kRole);
  // A skinned button has an accessible side of its own, which takes the role from here.
  if (!role.isValid() || dynamic_cast<SkinButton*>(object) != nullptr) return nullptr;
  return new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()));  // Qt's cache owns it
}

}  // namespace

bool HasTypeInformation(const QString& className) {
  // The names of an object's classes come one after the other, its own first.
  return !className.startsWith(QStringLiteral("QtWebEngine")) && className != QStringLiteral("QQuickItem") &&
         className != QStringLiteral("QObject");
}

QAccessible::Role AccessibleRoleOf(const QWidget& widget, QAccessible::Role otherwise) {
  const QVariant role = widget.property(kRole);
  return role.isValid() ? static_cast<QAccessible::Role>(role.toInt()) : otherwise;
}

void SetAccessibleRole(QWidget& widget, QAccessible::Role role) {
  [[maybe_unused]] static const bool installed = [] {
    QAccessible::installFactory(InterfaceOfRole);
    return true;
  }();
  widget.setProperty(kRole, static_cast<int>(role));
}
