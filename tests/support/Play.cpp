#include "support/Play.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QKeySequence>

#include "pages/view/TextControl.h"
#include "platform/forms/ComboBox.h"
#include "platform/forms/ListBox.h"
#include "platform/forms/Screen.h"
#include "platform/forms/SkinButton.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/TextPane.h"
#include "platform/forms/VScrollBar.h"
#include "platform/grid/FlexGrid.h"
#include "support/Gui.h"
#include "support/HandClock.h"
#include "support/Messages.h"
#include "support/Program.h"

namespace Gui {

namespace {

void PressKeys(const Form& form, const QString& step) {
  const QString name = step.section(' ', 0, 0);
  const QKeySequence keys(name);
  if (keys.count() != 1 || keys[0].key() == Qt::Key_unknown) qFatal("no such step: %s", qPrintable(step));
  for (int left = std::max(1, step.section(" x", 1).toInt()); left > 0; --left)
    Key(form, keys[0].key(), keys[0].keyboardModifiers());
}

void DoStep(const Form& form, const QString& step) {
  const QString verb = step.section(' ', 0, 0), object = step.section(' ', 1);
  if (verb == "click") return Click(form, object);
  if (verb == "point") return MoveTo(form, object);
  if (verb == "type") return Type(form, object);
  if (verb == "wait") return HandClock::Current()->Advance(object.toInt());
  if (verb == "focus") return Find(form, object)->setFocus();
  if (verb == "close") return static_cast<void>(const_cast<Form&>(form).close());
  if (verb != "press" && verb != "release") return PressKeys(form, step);
  if (verb == "press") MoveTo(form, object);
  const QWidget* widget = Find(form, object);
  const QPoint middle = widget->mapTo(&form, widget->rect().center());
  const auto action = verb == "press" ? QTest::MousePress : QTest::MouseRelease;
  QTest::mouseEvent(action, form.windowHandle(), Qt::LeftButton, {}, middle);
}

QString GridText(const FlexGrid& grid) {
  QStringList rows;
  for (int row = 0; row < grid.Rows(); ++row)
    rows.append(grid.TextMatrix(row, 0));
  return rows.join(',');
}

QString ListText(const ListBox& list) {
  QStringList lines;
  for (int line = 0; line < list.ListCount(); ++line)
    lines.append(list.List(line));
  return lines.join(',');
}

QString TextOf(const QWidget* widget) {
  static const QHash<SkinButton::Look, QString> looks{
      {SkinButton::Look::On, "on"}, {SkinButton::Look::Off, "off"}, {SkinButton::Look::Disabled, "disabled"}};
  if (!widget->isVisible()) return "-";
  if (const auto* button = dynamic_cast<const SkinButton*>(widget)) return looks.value(button->Shown());
  if (const auto* label = dynamic_cast<const Label*>(widget)) return label->Caption();
  if (const auto* box = dynamic_cast<const TextBox*>(widget)) return box->Text();
  if (const auto* box = dynamic_cast<const ComboBox*>(widget)) return box->Text();
  if (const auto* pane = dynamic_cast<const TextPane*>(widget)) return pane->Text();
  if (const auto* page = dynamic_cast<const TextControl*>(widget)) return page->PlainText().trimmed();
  if (const auto* list = dynamic_cast<const ListBox*>(widget)) return ListText(*list);
  if (const auto* grid = dynamic_cast<const FlexGrid*>(widget)) return GridText(*grid);
  if (const auto* answer = qobject_cast<const QAbstractButton*>(widget))
    return answer->isChecked() ? "ticked" : "";
  if (const auto* bar = dynamic_cast<const VScrollBar*>(widget))
    return QString("%1/%2").arg(bar->Value()).arg(bar->Max());
  return "shown";
}

QString SeenOf(const Form& form, const QString& name) {
  if (name == "said") return Messages::Current()->Take().join("; ");
  if (name == "active") return FormLife::Active() != nullptr ? FormLife::Active()->Name() : QString();
  if (name == "page") return TextOf(Find(*LoadedForm<Form1>(), "TXTextControl1"));
  if (!FormLife::Loaded().contains(const_cast<Form*>(&form))) return "gone";
  if (name == "focus") return form.focusWidget() != nullptr ? form.focusWidget()->objectName() : QString();
  if (name == "hand") return form.MousePointer() == kPointerHand ? "hand" : "";
  const QString control = name.section(':', 0, 0), colour = name.section(':', 1);
  const QWidget* widget = form.findChild<QWidget*>(control);
  if (widget == nullptr) return "none";
  if (colour.isEmpty()) return TextOf(widget);
  const auto* coloured = dynamic_cast<const Control*>(widget);
  return QString::number(colour == "fore" ? coloured->ForeColor() : coloured->BackColor(), 16);
}

}  // namespace

void Do(const Form& form, const QString& steps) {
  for (const QString& step : steps.split(", ", Qt::SkipEmptyParts))
    DoStep(form, step);
}

QString Seen(const Form& form, const QString& names) {
  QStringList seen;
  for (const QString& name : names.split(' '))
    seen.append(SeenOf(form, name));
  return seen.join('|');
}

void Play(const Form& form, const QString& watched, std::initializer_list<Step> steps) {
  for (const Step& step : steps) {
    Do(form, step.Does);
    EXPECT_EQ(Seen(form, watched), step.Sees) << "behind: " << step.Does.toStdString();
  }
}

}  // namespace Gui
