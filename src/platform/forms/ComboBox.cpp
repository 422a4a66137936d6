#include "platform/forms/ComboBox.h"

#include <QAbstractItemView>

#include "platform/forms/Font.h"

ComboBox::ComboBox(QWidget* container, const QString& name)
    : QComboBox(container), Control(this, name, ControlKind::ComboBox) {
  setFont(Arial(10));
  setMaxVisibleItems(10);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);  // the place is the form's matter
  view()->setTextElideMode(Qt::ElideRight);
  connect(this, &QComboBox::currentTextChanged, this, [this] { Change.Raise(); });
}

void ComboBox::AllowTyping() {
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  setCompleter(nullptr);  // what is typed stands
}

void ComboBox::AddItems(const QStringList& items) {
  const int chosen = currentIndex();
  addItems(items);
  setCurrentIndex(chosen);  // Qt would choose the first by itself
}
