#include "platform/forms/ListBox.h"

#include <QKeyEvent>
#include <algorithm>

#include "platform/forms/Font.h"

ListBox::ListBox(QWidget* container, const QString& name) : QListWidget(container), Control(this, name) {
  Watch(viewport());
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setTabKeyNavigation(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTextElideMode(Qt::ElideMiddle);  // both the name and its extension tell what it is
  setFont(Arial(10));
}

QString ListBox::List(int index) const {
  const QListWidgetItem* line = item(index);
  return line != nullptr ? line->text() : QString();
}

QString ListBox::Text() const {
  const QList<QListWidgetItem*> selected = selectedItems();
  return selected.isEmpty() ? QString() : selected.constFirst()->text();
}

// The first arrow key selects the line that has the focus; Qt would go on to the next.
void ListBox::keyPressEvent(QKeyEvent* event) {
  const bool arrow = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
  if (arrow && SelCount() == 0 && count() > 0) {
    setCurrentRow(std::max(currentRow(), 0));
    return;
  }
  QListWidget::keyPressEvent(event);
}
