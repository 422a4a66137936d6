// What a screen reader takes a control for, where its widget's class doesn't tell.
#pragma once

#include <QAccessible>

// To be set before anything asks for the widget's accessible side, best where the widget is made.
void SetAccessibleRole(QWidget& widget, QAccessible::Role role);
// The role that was set, or the other one.
QAccessible::Role AccessibleRoleOf(const QWidget& widget, QAccessible::Role otherwise);

// Whether a factory of accessible sides may look at the object of a class: all objects of the program pass
// by, and those of the web engine carry no type information, so that a look at one ends the program.
bool HasTypeInformation(const QString& className);
