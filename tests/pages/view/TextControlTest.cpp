// The page view, on a real form, with real clicks and keys.
#include "pages/view/TextControl.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QScrollBar>

#include "pages/rtf/rtf_pages.h"
#include "pages/view/PageZoom.h"
#include "platform/Clock.h"
#include "platform/forms/Screen.h"
#include "platform/forms/TextBox.h"
#include "support/Gui.h"
#include "support/Messages.h"
#include "support/Play.h"
#include "support/Store.h"

namespace {

QByteArray LeadIn() {
  return QByteArray(30, '\x7F');
}

class PageForm : public Form {
 public:
  PageForm() : Form(QStringLiteral("PageForm"), FormFrame::Frameless) {
    SetSize(9000, 6000);
    page = new TextControl(this, QStringLiteral("TXTextControl1"));
    page->Move(0, 0, 9000, 6000);
    page->LinkClicked = [this](int, int kind, const QString& target) {
      log << QStringLiteral("link %1 %2 (%3)").arg(kind).arg(target, page->LinkText());
    };
    page->Click = [this] { log << QStringLiteral("click"); };
    page->ObjectCreating = [this](int id) { log << QStringLiteral("creating %1").arg(id); };
    page->ObjectData = [this](int id, const QString& words) {
      log << QStringLiteral("data %1 %2").arg(id).arg(words);
    };
    page->ObjectActive = [this](int id) { log << QStringLiteral("active %1").arg(id); };
  }

  TextControl* page;
  QStringList log;
};

class TextControlTest : public ::testing::Test {
 protected:
  TextControlTest() {
    form_.Show();
    Gui::Settle();
  }
  ~TextControlTest() override {
    PageZoom::Reset();
    form_.Unload();
    Gui::Settle();
  }

  static PageForm& FreshForm() {
    FormLife::Begin([] {});
    return Default<PageForm>();
  }

  TextControl& Page() { return *form_.page; }

  void Load(const QByteArray& body) {
    store_.Write("rt01/0001.txm", LeadIn() + "{\\rtf1\\deff0{\\fonttbl{\\f0 Arial;}}" + body + "}");
    Page().Load("rt01\\0001.txm", 30, TextControl::kPageFormat);
    Gui::Settle();
  }

  QPoint PlaceOf(const QString& text) {
    QTextCursor cursor = Page().document()->find(text);
    cursor.setPosition(cursor.selectionStart() + 1);
    return Page().viewport()->mapTo(&form_, Page().cursorRect(cursor).center());
  }

  // How far a text begins below the upper edge, in pixels.
  int TopOf(const QString& text) {
    QTextCursor there = Page().document()->find(text);
    there.setPosition(there.selectionStart());
    return Page().cursorRect(there).top();
  }

  void ClickAt(QPoint point) {
    QTest::mouseMove(form_.windowHandle(), point);
    QTest::mouseClick(form_.windowHandle(), Qt::LeftButton, {}, point);
  }

  double SizeOf(const QString& text) {
    QTextCursor cursor = Page().document()->find(text);
    return cursor.charFormat().fontPointSize();
  }

  QStringList TakeLog() { return std::exchange(form_.log, {}); }

  Store store_;
  Messages messages_;
  PageForm& form_ = FreshForm();
};

const QByteArray kPageLinks =
    "Go to {\\field{\\*\\fldinst HYPERLINK \"rt0102\\\\\\\\0007.txmx\"}{\\fldrslt the {\\b next} page}} or "
    "{\\field{\\*\\fldinst HYPERLINK \\\\l \"More\"}{\\fldrslt further down}}.\\par";

QByteArray LongPage() {
  QByteArray body;
  for (int i = 0; i < 200; ++i)
    body += "line " + QByteArray::number(i) + "\\par ";
  return body + "{\\*\\bkmkstart More}here it is\\par" + body;
}

TEST_F(TextControlTest, TellsOfAClickedLinkWithItsWholeTextAndShowsTheHandOverIt) {
  const struct {
    const char* Text;
    QStringList Told;
    Qt::CursorShape Pointer;
  } rows[] = {{"next", {"click", "link 1 rt0102\\0007.txmx (the next page)"}, Qt::PointingHandCursor},
              {"further", {"click", "link 2 More (further down)"}, Qt::PointingHandCursor},
              {"Go to", {"click"}, Qt::ArrowCursor}};
  Load(kPageLinks);
  for (const auto& row : rows) {
    QTest::mouseMove(form_.windowHandle(), PlaceOf(row.Text));
    EXPECT_EQ(Page().viewport()->cursor().shape(), row.Pointer) << row.Text;
    ClickAt(PlaceOf(row.Text));
    EXPECT_EQ(TakeLog(), row.Told);
  }
}

TEST_F(TextControlTest, WalksTheLinksByTabFollowsThemByEnterAndLetsTabLeaveBehindTheLast) {
  auto* other = new TextBox(&form_, QStringLiteral("Text1"), 10);
  other->Widget()->show();
  Load(kPageLinks);
  const auto look = [this] {
    const auto selections = Page().extraSelections();
    return selections.isEmpty() ? QString() : selections.first().cursor.selectedText();
  };
  for (const bool forward : {true, false}) {
    const Qt::KeyboardModifiers shift = forward ? Qt::NoModifier : Qt::ShiftModifier;
    QStringList seen;
    Page().SetFocus();
    for (int i = 0; i < 5 && Page().HasFocus(); ++i) {
      seen << look();
      Gui::Key(form_, Qt::Key_Return);
      Gui::Key(form_, Qt::Key_Tab, shift);
    }
    const QString first = forward ? "the next page" : "further down";
    EXPECT_EQ(seen, QStringList({"", first, forward ? "further down" : "the next page"}));
    QStringList told{"link 1 rt0102\\0007.txmx (the next page)", "link 2 More (further down)"};
    if (!forward) told.swapItemsAt(0, 1);
    EXPECT_EQ(TakeLog(), told);
    EXPECT_TRUE(other->HasFocus());
    EXPECT_EQ(look(), "");
  }
}

TEST_F(TextControlTest, TellsAScreenReaderOfTheLinksOfThePage) {
  Load(kPageLinks);
  QAccessibleInterface* page = QAccessible::queryAccessibleInterface(&Page());
  ASSERT_EQ(page->childCount(), 2);
  QAccessibleInterface* link = page->child(1);
  EXPECT_EQ(link->role(), QAccessible::Link);
  EXPECT_EQ(link->text(QAccessible::Name), "further down");
  EXPECT_TRUE(link->rect().contains(form_.mapToGlobal(PlaceOf("further"))));
  EXPECT_EQ(page->childAt(link->rect().center().x(), link->rect().center().y()), link);
  EXPECT_FALSE(link->state().focused);
  Page().FocusLink(1);
  EXPECT_TRUE(link->state().focused);
  EXPECT_EQ(page->textInterface()->text(0, 5), "Go to");
  link->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  Gui::Settle();  // who asked does not wait for where the link leads
  EXPECT_EQ(TakeLog(), QStringList("link 2 More (further down)"));
  Load("no link");
  EXPECT_EQ(page->childCount(), 0);
  EXPECT_TRUE(Page().Links().isEmpty());
  Load("x " + kPageLinks);
  Page().FocusLink(0);
  EXPECT_EQ(Page().textCursor().selectedText(), "the next page");
  EXPECT_EQ(Page().FocusedLink(), 0);
}

TEST_F(TextControlTest, TakesBackTheLinksThatAScreenReaderHasWhenTheSizeChanges) {
  Load(kPageLinks);
  QAccessibleInterface* page = QAccessible::queryAccessibleInterface(&Page());
  const QAccessible::Id old = QAccessible::uniqueId(page->child(1));
  Gui::Do(form_, "focus TXTextControl1, Ctrl++");
  EXPECT_EQ(QAccessible::accessibleInterface(old), nullptr);
  ASSERT_EQ(page->childCount(), 2);
  EXPECT_EQ(page->child(1)->text(QAccessible::Name), "further down");
}

TEST_F(TextControlTest, LetsALinkReplaceThePageFromItsOwnEvent) {
  store_.Write("rt01/0002.txm", LeadIn() + "{\\rtf1 the second page}");
  Load(kPageLinks);
  form_.page->LinkClicked = [this](int, int, const QString&) { Page().Load("rt01\\0002.txm", 30, 3); };
  ClickAt(PlaceOf("next"));
  Gui::Settle();
  EXPECT_EQ(Page().PlainText(), QStringLiteral("the second page"));
  ClickAt(PlaceOf("second"));
  EXPECT_EQ(TakeLog(), QStringList({"click", "click"}));
}

TEST_F(TextControlTest, KeepsTheOldPageWhenALoadFails) {
  Load("the old page");
  store_.Write("rt01/short.txm", "short");
  store_.Write("rt01/other.txm", LeadIn() + "nothing");
  store_.Write("../outside.rtf", "{\\rtf1 outside}");
  const std::tuple<QString, int, QString> rows[] = {
      {"rt01\\none.txm", 3, "none.txm"},
      {"rt01\\short.txm", 3, "short.txm\" is too short: it has 5 bytes, and its text begins behind 30."},
      {"rt01\\other.txm", 3, "neither rich text nor HTML"},
      {"..\\outside.rtf", 5, "outside.rtf"},
      {"rt01\\0001.txm", 7, "there is no format 7"},
  };
  for (const auto& [path, format, expected] : rows) {
    const QString error = ErrorOf([&, name = path, kind = format] { Page().Load(name, 30, kind); });
    EXPECT_TRUE(error.contains(expected)) << error.toStdString();
    EXPECT_EQ(Page().PlainText(), QStringLiteral("the old page"));
  }
}

TEST_F(TextControlTest, ShowsPicturesOfAnHtmlPageOnlyFromTheProgramFolder) {
  for (const char* file : {"rt01/red.png", "rt01/my red.png", "../outside.png"})
    store_.Write(file, RedPicture({40, 40}, "png"));
  for (const auto& [source, shows] :
       {std::pair{"red.png", true}, {"my%20red.png", true}, {"../../outside.png", false}}) {
    store_.Write("rt01/p.htm",
                 QByteArray("<html><p><img src='") + source + "' width=40 height=40></p></html>");
    Page().Load("rt01\\p.htm", 0, TextControl::kPageFormat);
    EXPECT_EQ(Page().viewport()->grab().toImage().pixelColor(25, 25) == QColor(Qt::red), shows) << source;
  }
}

TEST_F(TextControlTest, GoesToANamedPlaceInAnyCaseAndBackToTheTopWithANewPage) {
  Load(LongPage());
  Page().GoToPlace("no such place");
  EXPECT_EQ(Page().verticalScrollBar()->value(), 0);
  Page().GoToPlace("more");
  EXPECT_EQ(TopOf("here it is"), 0);
  Load(LongPage());
  EXPECT_EQ(Page().verticalScrollBar()->value(), 0);
}

const QByteArray kObjects =
    "top\\par{\\object\\objw3000\\objh1500{\\*\\objname a.swf,1}}\\par"
    "\\pard\\li600 x{\\object\\objw1500\\objh750{\\*\\objname b.wmv}}\\par";

TEST_F(TextControlTest, RaisesTheEventsOfObjectsInTheirOrderWhileLoading) {
  store_.Write("rt01/0001.txm", LeadIn() + "{\\rtf1" + kObjects + "}");
  bool hadRect = false;
  form_.page->ObjectData = [&](int id, const QString& words) {
    hadRect = Page().ObjectRect(id).height() > 0;
    form_.log << QStringLiteral("data %1 %2").arg(id).arg(words);
  };
  Page().Load("rt01\\0001.txm", 30, 3);
  EXPECT_EQ(TakeLog(), QStringList({"creating 1", "data 1 a.swf,1", "creating 2", "data 2 b.wmv"}));
  EXPECT_TRUE(hadRect);
}

// Half a second passes between two looks at it.
class SlowClock final : public Clock {
 public:
  SlowClock() { Replace(this); }
  ~SlowClock() override { Replace(&old_); }
  QDateTime Now() const override { return old_.Now().addMSecs(500 * ++looks_); }
  void Sleep(int milliseconds) override { old_.Sleep(milliseconds); }
  std::unique_ptr<Alarm> Repeat(int milliseconds, std::function<void()> tick) override {
    return old_.Repeat(milliseconds, std::move(tick));
  }

 private:
  Clock& old_ = Current();
  mutable int looks_ = 0;
};

TEST_F(TextControlTest, ShowsTheHourglassOverAPageThatTakesLong) {
  const SlowClock clock;
  bool hadHourglass = false;
  form_.page->ObjectCreating = [&](int) { hadHourglass = QGuiApplication::overrideCursor() != nullptr; };
  Load(kObjects);
  EXPECT_FALSE(hadHourglass);
  Load(kObjects + LongPage());
  EXPECT_TRUE(hadHourglass);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(TextControlTest, SaysWhereObjectsStandAndFollowsTheScrolling) {
  Load(kObjects + LongPage());
  const auto pixels = [](double twips) { return Screen::PixelsX(twips); };
  const QRect first = Page().ObjectRect(1);
  const QRect second = Page().ObjectRect(2);
  EXPECT_EQ(first.size(), QSize(pixels(3000), pixels(1500)));
  EXPECT_EQ(second.size(), QSize(pixels(1500), pixels(750)));
  EXPECT_NEAR(second.left() - first.left(), pixels(600) + 9, 4);
  EXPECT_GE(second.top(), first.bottom());
  int moves = 0;
  Page().ObjectsMoved = [&] { ++moves; };
  Page().verticalScrollBar()->setValue(50);
  EXPECT_EQ(moves, 1);
  EXPECT_EQ(Page().ObjectRect(1), first.translated(0, -50));
  EXPECT_EQ(Page().ObjectRect(9), QRect());
}

TEST_F(TextControlTest, PaintsAnObjectExactlyWhereItSaysItStands) {
  Load("{\\*\\background{\\shp{\\*\\shpinst{\\sp{\\sn fillColor}{\\sv 255}}}}}" + kObjects);
  const QImage shown = Page().viewport()->grab().toImage();
  const QRect box = Page().ObjectRect(2);
  for (const QPoint& inside : {box.topLeft() + QPoint(1, 1), box.bottomRight() - QPoint(1, 1)})
    EXPECT_EQ(shown.pixelColor(inside), QColor(Qt::white));
  for (const QPoint& outside : {box.topLeft() - QPoint(3, 0), box.bottomRight() + QPoint(3, 3)})
    EXPECT_EQ(shown.pixelColor(outside), QColor(Qt::red));
}

TEST_F(TextControlTest, MakesAnObjectCurrentByAClickOrByItsProperty) {
  Load(kObjects);
  TakeLog();
  ClickAt(Page().viewport()->mapTo(&form_, Page().ObjectRect(1).center()));
  EXPECT_EQ(Page().CurrentObject(), 1);
  EXPECT_EQ(TakeLog(), QStringList({"active 1", "click"}));
  Page().ObjectActive = [this](int id) {
    form_.log << QStringLiteral("active %1").arg(id);
    Page().SetCurrentObject(id);
  };
  Page().SetCurrentObject(2);
  Page().SetCurrentObject(2);
  Page().SetCurrentObject(0);
  EXPECT_EQ(TakeLog(), QStringList({"active 2"}));
  Page().SetCurrentObject(77);
  EXPECT_EQ(Page().CurrentObject(), 0);
}

TEST_F(TextControlTest, FitsAPageWidthToTheControl) {
  Load("\\fs24 x\\par" + kObjects);
  const double own = SizeOf("x");
  TakeLog();
  Page().SetPageWidth(18000);  // twice what the control shows at its own size
  EXPECT_NEAR(SizeOf("x"), own / 2, 0.1);
  EXPECT_NEAR(Page().ObjectRect(1).width(), Screen::PixelsX(1500), 1);
  Page().Move(0, 0, 4500, 6000);
  EXPECT_NEAR(SizeOf("x"), own / 4, 0.1);
  Page().SetPageWidth(0);
  EXPECT_NEAR(SizeOf("x"), own, 0.1);
  EXPECT_EQ(TakeLog(), QStringList());  // the objects are the same
}

TEST_F(TextControlTest, CopiesTheWordsOfADraggedSelectionAlone) {
  Load("first words\\par " + kObjects + " last words\\par");
  QTest::mousePress(form_.windowHandle(), Qt::LeftButton, {}, PlaceOf("words"));
  QTest::mouseMove(form_.windowHandle(), PlaceOf("last"));
  QTest::mouseRelease(form_.windowHandle(), Qt::LeftButton, {}, PlaceOf("last"));
  Gui::Key(form_, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("ords\ntop\n\nx\nl"));
  EXPECT_FALSE(QApplication::clipboard()->mimeData()->hasHtml());
  Gui::Type(form_, "typed");
  EXPECT_FALSE(Page().PlainText().contains("typed"));
}

TEST_F(TextControlTest, OffersToCopyAndToSelectAllInItsMenu) {
  Load("all the words");
  const auto open = [this] {
    const QPoint point = Page().viewport()->rect().center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, point, Page().viewport()->mapToGlobal(point));
    QApplication::sendEvent(Page().viewport(), &event);
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
  };
  const auto press = [](QMenu& menu, int item) {
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(menu.actions().at(item)).center());
    Gui::Settle();
  };
  QMenu* menu = open();
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(menu->actions().at(0)->text(), QStringLiteral("Copy"));
  EXPECT_FALSE(menu->actions().at(0)->isEnabled());
  press(*menu, 1);
  menu = open();
  ASSERT_NE(menu, nullptr);
  press(*menu, 0);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("all the words"));
}

TEST_F(TextControlTest, ChangesTheSizeOfAllPagesByCtrlAndAKey) {
  auto* other = new TextControl(&form_, QStringLiteral("Other"));
  Load("\\fs24 x\\par" + kObjects);
  other->Load("rt01\\0001.txm", 30, 3);
  const double own = SizeOf("x");
  const QRect object = Page().ObjectRect(1);
  TakeLog();
  Page().SetFocus();
  for (const auto& [keys, percent] : {std::pair{"Ctrl++", 110},
                                      {"Ctrl+= x2", 150},
                                      {"Ctrl++ x9", 300},
                                      {"Ctrl+0", 100},
                                      {"Ctrl+-", 90},
                                      {"Ctrl+- x9", 50}}) {
    Gui::Do(form_, keys);
    EXPECT_NEAR(SizeOf("x"), own * percent / 100, 0.3) << percent;
    EXPECT_NEAR(Page().ObjectRect(1).width(), object.width() * percent / 100.0, 1) << percent;
    EXPECT_EQ(other->ObjectRect(1).size(), Page().ObjectRect(1).size()) << percent;
  }
  EXPECT_EQ(TakeLog(), QStringList());
  Load("\\fs24 x\\par");
  EXPECT_NEAR(SizeOf("x"), own / 2, 0.1);
}

TEST_F(TextControlTest, KeepsItsPlaceAndSelectionWhenTheSizeChanges) {
  Load(LongPage() + kPageLinks);
  Page().SetFocus();
  Page().FocusLink(1);
  Page().GoToPlace("more");
  ASSERT_EQ(TopOf("here it is"), 0);
  for (const char* key : {"Ctrl++", "Ctrl++", "Ctrl++", "Ctrl+-", "Ctrl+0"}) {
    Gui::Do(form_, key);
    EXPECT_NEAR(TopOf("here it is"), 0, 1);
    EXPECT_EQ(Page().FocusedLink(), 1);
  }
}

TEST_F(TextControlTest, GrowsItsLettersAndNotItsTables) {
  Load("\\trowd\\cellx4000\\cellx8000\\pard\\intbl a\\cell b\\cell\\row\\pard\\ri1500 x\\par");
  const auto width = [this] { return Page().document()->size().width(); };
  const double own = width();
  const double margin = Page().document()->find("x").blockFormat().rightMargin();
  Gui::Do(form_, "focus TXTextControl1, Ctrl++ x4");
  EXPECT_NEAR(width(), own, 1);
  EXPECT_FALSE(Page().horizontalScrollBar()->isVisible());
  EXPECT_NEAR(Page().document()->find("x").blockFormat().rightMargin(), margin, 0.1);
}

TEST_F(TextControlTest, ChangesTheSizeByCtrlAndTheWheel) {
  Load("\\fs24 x\\par");
  const double own = SizeOf("x");
  const QPoint middle = Page().rect().center();
  const auto turn = [&](QPoint by) {
    QWheelEvent wheel(middle, form_.mapToGlobal(middle), {}, by, Qt::NoButton, Qt::ControlModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(Page().viewport(), &wheel);
  };
  const struct {
    QPoint Turn;
    int Times;
    double Percent;
    bool IsSamePage;  // not laid out anew
  } rows[] = {{{0, 120}, 1, 110, false}, {{0, -120}, 2, 90, false}, {{0, 40}, 2, 90, true},
              {{0, 40}, 1, 100, false},  {{120, 0}, 3, 100, true},  {{0, -240}, 1, 80, false},
              {{0, -15}, 40, 50, false}, {{0, -120}, 2, 50, true}};
  for (const auto& row : rows) {
    const QPointer<QTextDocument> shown = Page().document();
    for (int i = 0; i < row.Times; ++i)
      turn(row.Turn);
    EXPECT_NEAR(SizeOf("x"), own * row.Percent / 100, 0.3) << row.Percent;
    EXPECT_EQ(Page().document() == shown, row.IsSamePage) << row.Turn.x() << ' ' << row.Turn.y();
  }
  const QTextDocument* shown = Page().document();
  Gui::Do(form_, "focus TXTextControl1, Ctrl+-");
  EXPECT_EQ(Page().document(), shown);
}

}  // namespace
