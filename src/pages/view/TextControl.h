// The page view: shows page files, tells of clicks, links and embedded objects. The course screen, the
// help and the trademark screen each have one. It reads the files it is given and opens nothing else.
#pragma once

#include <QByteArray>
#include <QRect>
#include <QString>
#include <QTextBrowser>
#include <functional>
#include <memory>
#include <optional>

#include "pages/common/RichText.h"
#include "platform/forms/Control.h"
#include "platform/forms/Event.h"
#include "platform/forms/ScrollKeys.h"

class TextControl : public QTextBrowser, public Control, public KeyTaker {
 public:
  // Formats of a file, by the numbers they have in a load. The bytes tell what the file is, whatever the
  // number says.
  static constexpr int kPageFormat = 3;
  static constexpr int kFileAndPlaceFormat = 4;
  static constexpr int kRichTextFormat = 5;

  TextControl(QWidget* container, const QString& name);
  ~TextControl() override;

  // Shows the file from its top; `offset` bytes in front of the page are skipped (30 for a page file).
  // The objects' events are raised before it returns. It is a RunTimeError that names the file when the
  // format is none of the three, when the path leads out of the program folder, is no file or can't be read,
  // when the file is larger than kPageLimit or shorter than `offset`, or holds neither rich text nor HTML
  // (which has a limit of its own, kHtmlLimit). The old page stays as it was then.
  void Load(const QString& programPath, int offset, int format);

  static constexpr int kLeadIn = 30;  // bytes before the page in a page file

  // Property 12, twips. With a width the page is laid out that wide and shown at the scale that makes it as
  // wide as the control; 0 (the start) shows it at its own size.
  void SetPageWidth(double twips);
  double PageWidth() const { return pageWidth_; }

  // Property 43: the visible text of the link that was clicked last.
  const QString& LinkText() const { return linkText_; }

  // The links of the page in reading order; one that runs over paragraphs counts once for each.
  struct Link {
    QString Text;
    int Start, End;  // positions in the document
  };
  const QList<Link>& Links() const;
  // Where a link begins to stand in the viewport, in pixels; of a link of several lines the first.
  QRect LinkRect(const Link& link) const;
  // The link that Enter follows, reached by Tab: an index into Links(), -1 without one.
  int FocusedLink() const;
  // Both do nothing for an index that the page does not have.
  void FocusLink(int index);
  void FollowLink(int index);

  // Property 54: the id of the object that is current; 0 for none. Making another one current raises
  // ObjectActive; an id that the page does not have counts as 0.
  void SetCurrentObject(int id);
  int CurrentObject() const { return currentObject_; }

  // Method 143 with the number 4: scrolls so that the named place stands at the top, as far as the page
  // is long enough. A name that the page does not have does nothing.
  void GoToPlace(const QString& name);

  // Brings the page to the screen at once.
  void Refresh();

  // Page Up, Page Down, Home and End scroll the page; Ctrl with plus, minus and 0 changes the size of all.
  bool TakeKey(const QKeyEvent& key) override;

  // The words of the page, one line a paragraph; objects and pictures are U+FFFC.
  QString PlainText() const { return toPlainText(); }

  const QList<PageObject>& Objects() const { return page_.Objects; }
  // Where an object stands in the viewport, in pixels; follows the scrolling, and may lie outside. Empty
  // for an id that the page does not have.
  QRect ObjectRect(int id) const;

  // A click on the page is Control's Click, raised before the event of a link under it.
  Event<int, int, QString> LinkClicked;  // number of the link on the page, kind, target
  // While a page loads, for each object in document order: the place first, then its data text.
  Event<int> ObjectCreating;       // id
  Event<int, QString> ObjectData;  // id, data text
  Event<int> ObjectActive;         // id
  Event<> ObjectsMoved;            // the page scrolled or was laid out anew

 protected:
  QVariant loadResource(int type, const QUrl& name) override;
  QMimeData* createMimeDataFromSelection() const override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void scrollContentsBy(int dx, int dy) override;
  void ColoursChanged() override;

 private:
  RichPage Read(const std::function<void()>& goesOn = {}) const;
  void ShowPage(RichPage&& page);
  void ShowAgain();
  static void ShowAllAgain();
  void SetLook();
  void FitHorizontalBar();
  void TellMoved();
  void ShowPointerAt(QPoint point);
  void ShowLinkFocus();
  QList<Link> ListLinks() const;
  void FollowHref(const QString& href);
  QTextCursor LinkAt(int position, int number) const;
  int PositionAt(QPoint point) const;
  PageMetrics Metrics() const;

  // What is shown, and how to read it again at another scale.
  struct Source {
    QString ProgramPath;
    QByteArray Bytes;
    int Offset = 0;
  };

  RichPage page_;
  mutable std::optional<QList<Link>> links_;  // of the page, once somebody asked
  Source source_;
  double pageWidth_ = 0;
  QString linkText_;
  int currentObject_ = 0;
  int shownFocus_ = -1;  // the link that looks focused
  int turned_ = 0;       // of the wheel with Ctrl, less than a step
  int shownWidth_ = 0;   // of the control when the page was laid out
  int releasedAt_ = -1;  // position in the text of the click that is being handled
};
