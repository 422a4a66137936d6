#include "pages/view/TextControl.h"

#include <QAbstractTextDocumentLayout>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTextFrame>
#include <QTextLayout>
#include <QUrl>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <memory>

#include "pages/PageReader.h"
#include "pages/common/PageLink.h"
#include "pages/view/PageAccess.h"
#include "pages/view/PageZoom.h"
#include "pages/view/SharpPictures.h"
#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"
#include "platform/files/Paths.h"
#include "platform/forms/LateHourglass.h"
#include "platform/forms/Palette.h"
#include "platform/forms/Screen.h"
#include "platform/forms/ScrollKeys.h"
#include "texts/Descriptions.h"

namespace {

constexpr int kTopLine = 4;  // pixels; what is seen there counts as the top of what is read
constexpr int kStep = QWheelEvent::DefaultDeltasPerStep;
constexpr int kMostPictureFiles = 500;  // of one page
constexpr int kFocusBack = Palette::kLight, kFocusEdge = Palette::kEdge, kFocusText = 0x000000;

const QString kScrollBarLook = QStringLiteral(
    "QScrollBar { background: @light; border: none; margin: 0; }"
    "QScrollBar:vertical { width: 14px; } QScrollBar:horizontal { height: 14px; }"
    "QScrollBar::handle { background: @blue; border: 2px solid @light; border-radius: 6px; }"
    "QScrollBar::handle:vertical { min-height: 30px; } QScrollBar::handle:horizontal { min-width: 30px; }"
    "QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }"
    "QScrollBar::add-page, QScrollBar::sub-page { background: none; }");

// Pictures of an HTML page lie beside it. One that can't be had leaves its place empty.
PictureLoader LoaderBeside(const QString& programPath) {
  const qsizetype folderEnd = std::max(programPath.lastIndexOf(u'\\'), programPath.lastIndexOf(u'/'));
  const QString folder = programPath.left(folderEnd + 1);
  return [folder, files = 0](const QString& name) mutable {
    QByteArray bytes;
    if (++files > kMostPictureFiles) return bytes;
    // Word processors write the name as an address has it, "my%20till.png".
    for (const QString& file : {name, QUrl::fromPercentEncoding(name.toUtf8())}) {
      if (bytes.isEmpty()) IgnoreErrors([&] { bytes = ReadProgramFile(folder + file, kPageLimit); });
    }
    return bytes;
  };
}

// All views, which change their size together.
QList<TextControl*>& Views() {
  static QList<TextControl*> views;
  return views;
}

}  // namespace

TextControl::TextControl(QWidget* container, const QString& name)
    : QTextBrowser(container), Control(this, name) {
  Watch(viewport());
  setOpenLinks(false);
  setFrameShape(QFrame::NoFrame);
  verticalScrollBar()->setStyleSheet(Palette::Sheet(kScrollBarLook));
  horizontalScrollBar()->setStyleSheet(Palette::Sheet(kScrollBarLook));
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  connect(horizontalScrollBar(), &QScrollBar::rangeChanged, this, &TextControl::FitHorizontalBar);
  connect(this, &QTextBrowser::anchorClicked, this,
          [this](const QUrl& link) { FollowHref(link.toString()); });
  connect(this, &QTextBrowser::selectionChanged, this, &TextControl::ShowLinkFocus);
  InstallPageAccess();
  page_.Document = std::make_unique<QTextDocument>();
  setDocument(page_.Document.get());
  SetLook();
  Views().append(this);
}

TextControl::~TextControl() {
  Views().removeOne(this);
  // The view must let go of the page's document before that goes, and tells nobody of it.
  page_.Objects.clear();
  setDocument(nullptr);
}

PageMetrics TextControl::Metrics() const {
  PageMetrics metrics;
  metrics.LogicalDpi = logicalDpiY();
  if (width() > 0) metrics.ViewWidth = width();
  const double own = Screen::Shrink() / Screen::TwipsPerPixelX();
  const double shown = pageWidth_ > 0 && width() > 0 ? width() / pageWidth_ : own;
  metrics.PixelsPerTwip = shown * PageZoom::Factor();
  return metrics;
}

void TextControl::Load(const QString& programPath, int offset, int format) {
  if (format != kPageFormat && format != kFileAndPlaceFormat && format != kRichTextFormat) {
    throw RunTimeError(Describe("page-format", NamedPath(programPath), QString::number(format)));
  }
  LateHourglass hourglass;
  Source source{programPath, ReadProgramFile(programPath, kPageLimit), offset};
  std::swap(source, source_);
  try {
    ShowPage(Read([&hourglass] { hourglass.GoesOn(); }));
  } catch (const RunTimeError&) {
    source_ = std::move(source);
    throw;
  }
  if (hourglass.IsShown()) document()->size();  // lays it out, which takes long too
  verticalScrollBar()->setValue(0);
  horizontalScrollBar()->setValue(0);
  currentObject_ = 0;
  ShowPointerAt(viewport()->mapFromGlobal(QCursor::pos()));
  // A handler may load the next page: then these objects are gone.
  const QTextDocument* const shown = document();
  const QList<PageObject> objects = page_.Objects;
  for (const PageObject& object : objects) {
    if (document() == shown) ObjectCreating.Raise(object.Id);
    if (document() == shown) ObjectData.Raise(object.Id, object.DataText);
  }
}

RichPage TextControl::Read(const std::function<void()>& goesOn) const {
  RichPage page = ReadPage(source_.Bytes, source_.Offset, Metrics(), NamedPath(source_.ProgramPath),
                           LoaderBeside(source_.ProgramPath), goesOn);
  PageZoom::KeepWidths(*page.Document);
  return page;
}

void TextControl::ShowPage(RichPage&& page) {
  // The old page may be the one whose link is being followed: it goes when that is over.
  std::unique_ptr<QTextDocument> old = std::move(page_.Document);
  page_ = std::move(page);
  links_.reset();
  setExtraSelections({});
  shownFocus_ = -1;
  shownWidth_ = width();
  new SharpPictures(*page_.Document);  // the document's
  setDocument(page_.Document.get());
  old.release()->deleteLater();
  SetLook();
  releasedAt_ = -1;
  TellPageChanged(*this);
}

// The same page at another scale: the words at the top stay there, and so does what is selected.
void TextControl::ShowAgain() {
  if (source_.Bytes.isEmpty()) return;
  const bool isAtTop = verticalScrollBar()->value() == 0;
  QTextCursor top = cursorForPosition({0, kTopLine});
  const int above = cursorRect(top).top();
  const QTextCursor selected = textCursor();
  if (!IgnoreErrors([this] { ShowPage(Read()); })) return;  // keeps the layout it has
  document()->size();
  const auto place = [this](int position) { return std::min(position, document()->characterCount() - 1); };
  QTextCursor cursor(document());
  cursor.setPosition(place(selected.anchor()));
  cursor.setPosition(place(selected.position()), QTextCursor::KeepAnchor);
  setTextCursor(cursor);
  ShowLinkFocus();
  cursor.setPosition(place(top.position()));
  const int to = verticalScrollBar()->value() + cursorRect(cursor).top() - above;
  verticalScrollBar()->setValue(isAtTop ? 0 : to);
  TellMoved();
}

void TextControl::ShowAllAgain() {
  for (TextControl* view : std::as_const(Views()))
    view->ShowAgain();
}

// A table that stands out into the right margin hides nothing: the page is not scrolled sideways for it.
void TextControl::FitHorizontalBar() {
  const double margin = document()->rootFrame()->frameFormat().rightMargin();
  const bool hidesText = horizontalScrollBar()->maximum() > margin;
  setHorizontalScrollBarPolicy(hidesText ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
  if (!hidesText && horizontalScrollBar()->maximum() > 0) horizontalScrollBar()->setRange(0, 0);
}

void TextControl::SetLook() {
  QPalette colours = palette();
  colours.setColor(QPalette::Base, page_.PaperColour);
  colours.setColor(QPalette::Text, Screen::Colour(ForeColor()));
  setPalette(colours);
  viewport()->setPalette(colours);  // a style sheet of the program keeps it from following
}

void TextControl::ColoursChanged() {
  SetLook();
}

void TextControl::SetPageWidth(double twips) {
  if (twips == pageWidth_) return;
  pageWidth_ = std::max(twips, 0.0);
  ShowAgain();
}

void TextControl::SetCurrentObject(int id) {
  const int current = id >= 1 && id <= page_.Objects.size() ? id : 0;
  if (current == currentObject_) return;
  currentObject_ = current;
  if (current != 0) ObjectActive.Raise(current);
}

void TextControl::GoToPlace(const QString& name) {
  const int position = page_.PlaceOf(name);
  if (position < 0) return;
  document()->size();  // lays the page out to its end, so that the scroll bar knows how far it goes
  QTextCursor cursor(document());
  cursor.setPosition(std::min(position, document()->characterCount() - 1));
  verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(cursor).top());
}

void TextControl::Refresh() {
  viewport()->repaint();
}

QRect TextControl::ObjectRect(int id) const {
  if (id < 1 || id > page_.Objects.size()) return {};
  const int position = page_.Objects.at(id - 1).Position;
  QTextCursor cursor(document());
  cursor.setPosition(position);
  const QRect caret = cursorRect(cursor);
  const QTextBlock block = cursor.block();
  const QTextLine line = block.layout()->lineForTextPosition(position - block.position());
  cursor.setPosition(position + 1, QTextCursor::KeepAnchor);
  const QTextImageFormat box = cursor.charFormat().toImageFormat();
  const int height = static_cast<int>(std::lround(box.height()));
  const int bottom =
      caret.top() + static_cast<int>(std::lround(line.isValid() ? line.ascent() : box.height()));
  return {caret.left(), bottom - height, static_cast<int>(std::lround(box.width())), height};
}

bool TextControl::TakeKey(const QKeyEvent& key) {
  const double size = PageZoom::Factor();
  if (PageZoom::FollowsKey(key)) {
    if (PageZoom::Factor() != size) ShowAllAgain();
    return true;
  }
  return ScrollByKey(*verticalScrollBar(), key);
}

void TextControl::keyPressEvent(QKeyEvent* event) {
  if (!TakeKey(*event)) QTextBrowser::keyPressEvent(event);
}

void TextControl::wheelEvent(QWheelEvent* event) {
  if ((event->modifiers() & Qt::ControlModifier) == 0) {
    turned_ = 0;
    QTextBrowser::wheelEvent(event);
    return;
  }
  // Fine wheels and touch pads tell of a step in many small turns.
  turned_ += event->angleDelta().y();
  const double size = PageZoom::Factor();
  for (; turned_ >= kStep; turned_ -= kStep)
    PageZoom::Larger();
  for (; turned_ <= -kStep; turned_ += kStep)
    PageZoom::Smaller();
  if (PageZoom::Factor() != size) ShowAllAgain();
  event->accept();
}

void TextControl::contextMenuEvent(QContextMenuEvent* event) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  QAction* copying = menu->addAction(Describe("page-copy"), this, &TextControl::copy);
  copying->setEnabled(textCursor().hasSelection());
  menu->addAction(Describe("page-select-all"), this, &TextControl::selectAll);
  menu->popup(event->globalPos());
}

// The words alone: who pastes them has no use for the page's links and looks.
QMimeData* TextControl::createMimeDataFromSelection() const {
  auto* words = new QMimeData;
  words->setText(textCursor().selection().toPlainText().remove(QChar::ObjectReplacementCharacter));
  return words;
}

QVariant TextControl::loadResource(int, const QUrl&) {
  return {};
}

int TextControl::PositionAt(QPoint point) const {
  const QPointF onPage(point.x() + horizontalScrollBar()->value(), point.y() + verticalScrollBar()->value());
  return document()->documentLayout()->hitTest(onPage, Qt::ExactHit);
}

void TextControl::mousePressEvent(QMouseEvent* event) {
  QTextBrowser::mousePressEvent(event);
  if (event->button() != Qt::LeftButton) return;
  for (const PageObject& object : page_.Objects) {
    if (ObjectRect(object.Id).contains(event->pos())) {
      SetCurrentObject(object.Id);
      return;
    }
  }
}

// The hand over links; what a browser remembers of the page before does not count.
void TextControl::ShowPointerAt(QPoint point) {
  viewport()->setCursor(anchorAt(point).isEmpty() ? Qt::ArrowCursor : Qt::PointingHandCursor);
}

void TextControl::mouseMoveEvent(QMouseEvent* event) {
  QTextBrowser::mouseMoveEvent(event);
  ShowPointerAt(event->pos());
}

void TextControl::focusInEvent(QFocusEvent* event) {
  QTextBrowser::focusInEvent(event);
  ShowLinkFocus();
}

void TextControl::focusOutEvent(QFocusEvent* event) {
  QTextBrowser::focusOutEvent(event);
  ShowLinkFocus();
}

// From link to link, and behind the last one on to the next control.
bool TextControl::focusNextPrevChild(bool next) {
  const bool stays = QTextBrowser::focusNextPrevChild(next);
  ShowLinkFocus();
  return stays;
}

void TextControl::ShowLinkFocus() {
  const int focused = FocusedLink();
  if (focused == shownFocus_) return;
  shownFocus_ = focused;
  QList<ExtraSelection> looks;
  if (focused >= 0) {
    ExtraSelection look{textCursor(), {}};
    look.format.setBackground(Screen::Colour(kFocusBack));
    look.format.setForeground(Screen::Colour(kFocusText));
    look.format.setProperty(QTextFormat::OutlinePen, QPen(Screen::Colour(kFocusEdge), 2));
    looks.append(look);
  }
  setExtraSelections(looks);
  if (focused >= 0) TellLinkFocus(*this);
}

const QList<TextControl::Link>& TextControl::Links() const {
  if (!links_) links_ = ListLinks();
  return *links_;
}

QList<TextControl::Link> TextControl::ListLinks() const {
  QList<Link> links;
  int number = 0;
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    int end = -1;  // a link goes on from here
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextFragment fragment = it.fragment();
      if (!fragment.charFormat().isAnchor() || fragment.charFormat().anchorHref().isEmpty()) continue;
      const int itsNumber = fragment.charFormat().intProperty(kLinkNumberProperty);
      const bool goesOn = fragment.position() == end && itsNumber == number;
      if (!goesOn) links.append({{}, fragment.position(), 0});
      end = fragment.position() + fragment.length();
      number = itsNumber;
      links.last().Text += fragment.text();
      links.last().End = end;
    }
  }
  return links;
}

QRect TextControl::LinkRect(const Link& link) const {
  QTextCursor cursor(document());
  cursor.setPosition(link.Start);
  const QRect first = cursorRect(cursor);
  cursor.setPosition(link.End);
  const QRect last = cursorRect(cursor);
  const int right = last.top() == first.top() ? last.left() : viewport()->width();
  return {first.left(), first.top(), std::max(right - first.left(), 1), first.height()};
}

int TextControl::FocusedLink() const {
  const QTextCursor cursor = textCursor();
  if (!hasFocus() || !cursor.hasSelection()) return -1;
  const QList<Link>& links = Links();
  const auto found = std::lower_bound(links.begin(), links.end(), cursor.selectionStart(),
                                      [](const Link& link, int position) { return link.Start < position; });
  const bool isLink =
      found != links.end() && found->Start == cursor.selectionStart() && found->End == cursor.selectionEnd();
  return isLink ? static_cast<int>(found - links.begin()) : -1;
}

void TextControl::FocusLink(int index) {
  const QList<Link> links = Links();
  if (index < 0 || index >= links.size()) return;
  QTextCursor cursor(document());
  cursor.setPosition(links.at(index).Start);
  cursor.setPosition(links.at(index).End, QTextCursor::KeepAnchor);
  setFocus();
  setTextCursor(cursor);
  ShowLinkFocus();
}

void TextControl::FollowLink(int index) {
  const QList<Link> links = Links();
  if (index < 0 || index >= links.size()) return;
  FocusLink(index);
  QTextCursor cursor(document());
  cursor.setPosition(links.at(index).Start + 1);
  FollowHref(cursor.charFormat().anchorHref());
}

void TextControl::mouseReleaseEvent(QMouseEvent* event) {
  releasedAt_ = PositionAt(event->pos());
  QTextBrowser::mouseReleaseEvent(event);
  releasedAt_ = -1;
}

void TextControl::FollowHref(const QString& href) {
  const PageLink link = LinkOfHref(href);
  if (link.Kind == 0) return;
  // By the keyboard the link is selected.
  const int position = releasedAt_ >= 0 ? releasedAt_ : textCursor().selectionStart();
  QTextCursor cursor(document());
  cursor.setPosition(position);
  cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
  const int number = cursor.charFormat().intProperty(kLinkNumberProperty);
  linkText_ = LinkAt(position, number).selectedText();
  LinkClicked.Raise(number, link.Kind, link.Target);
}

// The whole link that the position is in, selected.
QTextCursor TextControl::LinkAt(int position, int number) const {
  const QTextBlock block = document()->findBlock(position);
  int first = position;
  int end = position;
  for (auto it = block.begin(); !it.atEnd(); ++it) {
    const QTextFragment fragment = it.fragment();
    if (fragment.charFormat().intProperty(kLinkNumberProperty) != number) continue;
    first = std::min(first, fragment.position());
    end = std::max(end, fragment.position() + fragment.length());
  }
  QTextCursor cursor(document());
  cursor.setPosition(first);
  cursor.setPosition(end, QTextCursor::KeepAnchor);
  return cursor;
}

void TextControl::TellMoved() {
  if (!page_.Objects.isEmpty()) ObjectsMoved.Raise();
}

void TextControl::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  // Also comes when the scroll bar comes or goes: the scale hangs on the whole control.
  if (pageWidth_ > 0 && shownWidth_ != width()) ShowAgain();
  TellMoved();
}

void TextControl::scrollContentsBy(int dx, int dy) {
  QTextBrowser::scrollContentsBy(dx, dy);
  TellMoved();
}
