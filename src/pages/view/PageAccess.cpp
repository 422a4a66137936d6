#include "pages/view/PageAccess.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>
#include <QTextBlock>
#include <QTextCursor>
#include <algorithm>

#include "pages/view/TextControl.h"
#include "platform/forms/AccessibleRole.h"

namespace {

// One link of the page. It counts as gone once the page is another one.
class LinkAccess final : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  LinkAccess(TextControl& page, int index) : page_(&page), document_(page.document()), index_(index) {}

  bool isValid() const override { return page_ != nullptr && page_->document() == document_; }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(page_); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessible::Role role() const override { return QAccessible::Link; }

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name && isValid() ? page_->Links().value(index_).Text : QString();
  }
  void setText(QAccessible::Text, const QString&) override {}

  QRect rect() const override {
    if (!isValid()) return {};
    const QRect place = page_->LinkRect(page_->Links().value(index_));
    return {page_->viewport()->mapToGlobal(place.topLeft()), place.size()};
  }

  QAccessible::State state() const override {
    QAccessible::State state;
    if (!isValid()) {
      state.invalid = true;
      return state;
    }
    state.focusable = true;
    state.linked = true;
    state.focused = page_->FocusedLink() == index_;
    const QRect place = page_->LinkRect(page_->Links().value(index_));
    state.offscreen = !page_->viewport()->rect().intersects(place);
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
  }

  QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
  void doAction(const QString& name) override {
    if (!isValid()) return;
    // Later: following a link replaces the page, and this object with it.
    if (name == pressAction())
      QMetaObject::invokeMethod(
          page_.data(),
          [page = page_, document = document_, index = index_] {
            if (page->document() == document) page->FollowLink(index);
          },
          Qt::QueuedConnection);
    if (name == setFocusAction()) page_->FocusLink(index_);
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  QPointer<TextControl> page_;
  const QTextDocument* document_;
  int index_;
};

// The page itself.
class PageAccess final : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  explicit PageAccess(TextControl& page) : QAccessibleWidget(&page, QAccessible::Document), page_(page) {}
  ~PageAccess() override { ForgetLinks(); }
  PageAccess(const PageAccess&) = delete;
  PageAccess& operator=(const PageAccess&) = delete;

  void ForgetLinks() const {
    for (const QAccessible::Id id : std::as_const(links_))
      QAccessible::deleteAccessibleInterface(id);
    links_.clear();
    document_ = nullptr;
  }

  int childCount() const override {
    ListLinks();
    return static_cast<int>(links_.size());
  }
  QAccessibleInterface* child(int index) const override {
    ListLinks();
    return index >= 0 && index < links_.size() ? QAccessible::accessibleInterface(links_.at(index)) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    for (int i = 0; i < links_.size(); ++i) {
      if (QAccessible::accessibleInterface(links_.at(i)) == child) return i;
    }
    return -1;
  }
  QAccessibleInterface* focusChild() const override {
    const int focused = page_.FocusedLink();
    return focused >= 0 ? child(focused) : QAccessibleWidget::focusChild();
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    for (int i = 0; i < childCount(); ++i) {
      QAccessibleInterface* link = child(i);
      if (link != nullptr && link->rect().contains(x, y)) return link;
    }
    return nullptr;
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    state.multiLine = true;
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  void selection(int, int* start, int* end) const override {
    *start = page_.textCursor().selectionStart();
    *end = page_.textCursor().selectionEnd();
  }
  int selectionCount() const override { return page_.textCursor().hasSelection() ? 1 : 0; }
  void addSelection(int start, int end) override { setSelection(0, start, end); }
  void removeSelection(int) override { setCursorPosition(cursorPosition()); }
  void setSelection(int, int start, int end) override { page_.setTextCursor(Selected(start, end)); }
  int cursorPosition() const override { return page_.textCursor().position(); }
  void setCursorPosition(int position) override { page_.setTextCursor(Selected(position, position)); }

  QString text(QAccessible::Text kind) const override { return QAccessibleWidget::text(kind); }
  QString text(int start, int end) const override {
    return Selected(start, end).selectedText().replace(QChar::ParagraphSeparator, u'\n');
  }
  int characterCount() const override { return page_.document()->characterCount() - 1; }
  QRect characterRect(int offset) const override {
    const QRect place = page_.cursorRect(Selected(offset, offset));
    return {page_.viewport()->mapToGlobal(place.topLeft()), place.size()};
  }
  int offsetAtPoint(const QPoint& point) const override {
    return page_.cursorForPosition(page_.viewport()->mapFromGlobal(point)).position();
  }
  void scrollToSubstring(int start, int end) override {
    setSelection(0, start, end);
    page_.ensureCursorVisible();
  }
  QString attributes(int offset, int* start, int* end) const override {
    *start = *end = offset;
    return {};
  }

 private:
  QTextCursor Selected(int start, int end) const {
    QTextCursor cursor(page_.document());
    cursor.setPosition(std::clamp(start, 0, characterCount()));
    cursor.setPosition(std::clamp(end, 0, characterCount()), QTextCursor::KeepAnchor);
    return cursor;
  }

  void ListLinks() const {
    if (document_ == page_.document()) return;
    ForgetLinks();
    document_ = page_.document();
    for (int i = 0; i < page_.Links().size(); ++i)
      links_.append(QAccessible::registerAccessibleInterface(new LinkAccess(page_, i)));
  }

  TextControl& page_;
  // Listed when they are asked for first: without a screen reader nobody asks.
  mutable QList<QAccessible::Id> links_;
  mutable const QTextDocument* document_ = nullptr;
};

QAccessibleInterface* MakePageAccess(const QString& className, QObject* object) {
  auto* page = HasTypeInformation(className) ? dynamic_cast<TextControl*>(object) : nullptr;
  return page != nullptr ? new PageAccess(*page) : nullptr;
}

PageAccess* AccessOf(TextControl& page) {
  return dynamic_cast<PageAccess*>(QAccessible::queryAccessibleInterface(&page));
}

}  // namespace

void InstallPageAccess() {
  QAccessible::installFactory(MakePageAccess);
}

void TellPageChanged(TextControl& page) {
  PageAccess* access = AccessOf(page);
  if (access == nullptr) return;
  access->ForgetLinks();
  QAccessibleEvent event(&page, QAccessible::ObjectReorder);
  QAccessible::updateAccessibility(&event);
}

void TellLinkFocus(TextControl& page) {
  if (!QAccessible::isActive()) return;  // the links need not be listed for nobody
  PageAccess* access = AccessOf(page);
  QAccessibleInterface* link = access != nullptr ? access->focusChild() : nullptr;
  if (link == nullptr) return;
  QAccessibleEvent event(link, QAccessible::Focus);
  QAccessible::updateAccessibility(&event);
}
