// The glossary screen: filled when a course is chosen, browsed by mouse and keys, printed.
#include "reference/Glossary.h"

#include <QPrinter>

#include "platform/forms/CharacterWidths.h"
#include "platform/forms/PrintDialog.h"
#include "platform/grid/FlexGrid.h"
#include "reference/GlossaryLayout.h"
#include "support/Play.h"
#include "support/Program.h"

namespace {

constexpr int kPlain = 0xFFFFFF, kHot = 0x000001, kHotText = 0xCCCCCC, kBar = 0xCCCCCC;

// A group of each of the letters, with so many terms that the list has to scroll.
QByteArray Groups(const char* letters, int terms = 6) {
  QByteArray text;
  for (const char* letter = letters; *letter != '\0'; ++letter) {
    text += QByteArray("^") + *letter;
    for (int term = 1; term <= terms; ++term)
      text += QByteArray("%") + *letter + QByteArray::number(term) + "~Meaning.";
  }
  return text + "^Z";
}

class GlossaryTest : public CourseTest {
 protected:
  ~GlossaryTest() override { AnswerPrintDialogs({}); }

  // The glossary of a learner who has chosen the course.
  Glossary& Read(const QByteArray& common) {
    store.Write("Glossary.txt", common);
    ReadAs("Ann", "Lee");
    return *LoadedForm<Glossary>();
  }
  Glossary& Open(const QByteArray& common) {
    Read(common);
    return Gui::Show<Glossary>();
  }

  static FlexGrid& List(const Form& form) { return *Gui::Find<FlexGrid>(form, "MSFlexGrid1"); }
  static FlexGrid& Strip(const Form& form) { return *Gui::Find<FlexGrid>(form, "MSFlexGrid2"); }
  static QString Rows(const Form& form) {
    QStringList rows;
    for (int row = 0; row < List(form).Rows(); ++row)
      rows << List(form).TextMatrix(row, 0).trimmed() + u'|' + List(form).TextMatrix(row, 1);
    return rows.join(u' ');
  }
  static QString Letters(const Form& form) {
    QString letters;
    for (int col = 0; col < Strip(form).Cols(); ++col)
      letters += Strip(form).TextMatrix(0, col);
    return letters;
  }
  // The letters of the strip that are not plain.
  static QString Marked(const Form& form) {
    QString marked;
    FlexGrid& strip = Strip(form);
    for (int col = 0; col < strip.Cols(); ++col) {
      strip.SetCol(col);
      if (strip.CellBackColor() == kPlain) continue;
      EXPECT_TRUE(strip.CellBackColor() == kHot && strip.CellForeColor() == kHotText);
      marked += strip.Text() + (strip.CellFontUnderline() ? "_" : "");
    }
    return marked;
  }
  // A letter is 20 pixels wide on every display.
  static QPoint LetterPlace(const Form& form, int letter) {
    const QPoint place(20 * letter + 10, Strip(form).viewport()->height() / 2);
    return Strip(form).viewport()->mapTo(&form, place);
  }
  static void ClickLetter(const Form& form, int letter) {
    Gui::MoveTo(form, LetterPlace(form, letter));
    QTest::mouseClick(form.windowHandle(), Qt::LeftButton, {}, LetterPlace(form, letter));
  }
  static QString TopTerm(const Form& form) { return List(form).TextMatrix(List(form).TopRow(), 0); }
};

TEST_F(GlossaryTest, IsFilledWhenTheCourseIsChosen) {
  Glossary& form = Read("^A%Audit~To check.%Ask\tnow~B^B%Box~A case.^Z");
  EXPECT_FALSE(form.Shown());
  // "B" is a definition of one character; what stands behind a tab has moved out of the list.
  EXPECT_EQ(Rows(form), "| A| | |Audit |To check. | |Ask | B| | |Box |A case. | Z|");
  EXPECT_EQ(Letters(form), "ABZ");
  FlexGrid& list = List(form);
  for (const int row : {1, 3, 4}) {
    list.SetRow(row);
    for (const int col : {0, 1}) {
      list.SetCol(col);
      const bool bar = row == 1;
      EXPECT_EQ(list.CellBackColor(), bar ? kBar : kPlain);
      EXPECT_EQ(list.CellFontBold(), (bar && col == 0) || (row == 3 && col == 1));
      EXPECT_EQ(list.CellFontSize(), bar && col == 0 ? 10 : 9);
    }
  }
  EXPECT_EQ(form.Document().Text(), "A\n\nAudit.  To check.\n\nAsk\tnow.  B\n\nB\n\nBox.  A case.\n\nZ\n\n");
  const PieceLook letter = form.Document().LookAt(0), term = form.Document().LookAt(3),
                  definition = form.Document().LookAt(11);
  EXPECT_TRUE(letter.Bold && letter.Points == 12 && letter.Colour == 0xC000C0);
  EXPECT_TRUE(term.Bold && !term.Points && !term.Colour && !definition.Bold);
  form.Clear_Form();
  EXPECT_EQ(Rows(form) + Letters(form), "|");
}

TEST_F(GlossaryTest, ADefinitionFillsItsRowsUpToTheColumn) {
  Glossary& form = Read("^A%T~" + QByteArray("every week the till is counted and ").repeated(20) + "%U~^Z");
  QFont font("Arial");
  font.setPointSizeF(9);
  CharacterWidths widths(font);
  int broken = 0;
  for (int row = 0; row < List(form).Rows(); ++row) {
    const QString text = List(form).TextMatrix(row, 1);
    if (!text.endsWith("\r\n")) continue;
    ++broken;
    double width = 0;
    for (const QChar character : text.chopped(2))
      width += widths.Of(character.unicode());
    EXPECT_GT(width, GlossaryLayout::Fitted(9000));
    EXPECT_LT(width, GlossaryLayout::Fitted(10000));
  }
  EXPECT_GT(broken, 3);
}

TEST_F(GlossaryTest, AClickBringsALetterToTheTopAndScrollingClearsItsMark) {
  Glossary& form = Open(Groups("ABCD"));
  for (const int letter : {3, 1}) {
    ClickLetter(form, letter);
    EXPECT_EQ(TopTerm(form) + Marked(form), letter == 3 ? "DD_" : "BB_");
  }
  Gui::MoveTo(form, "MSFlexGrid1");  // the mouse has been over it: it goes plain
  EXPECT_EQ(Marked(form), "");
  ClickLetter(form, 2);
  List(form).SetTopRow(List(form).TopRow() - 1);
  EXPECT_EQ(Marked(form), "");
}

TEST_F(GlossaryTest, TheLetterUnderTheMouseIsLitAndNoOther) {
  Glossary& form = Open(Groups("ABCD"));
  const auto behind = [&](int letter) {
    Gui::MoveTo(form, LetterPlace(form, letter));
    return Marked(form);
  };
  EXPECT_EQ(behind(1), "B_");
  EXPECT_EQ(behind(2), "C_");
  EXPECT_EQ(Strip(form).cursor().shape(), Qt::PointingHandCursor);
  EXPECT_EQ(behind(5), "");  // beside the letters
  Gui::Do(form, "D");        // selected without the mouse
  EXPECT_EQ(Marked(form), "D");
  EXPECT_EQ(behind(0), "A_D");
  behind(3);
  Gui::MoveTo(form, QPoint(4, 200));
  EXPECT_EQ(Marked(form), "");  // the mouse passing over the selected letter has cleared it
}

TEST_F(GlossaryTest, OnlyTheFirst26PlacesTakeTheMouse) {
  Glossary& form = Open(Groups("ABCDEFGHIJKLMNOPQRSTUVWXY01"));
  ClickLetter(form, 26);
  EXPECT_EQ(Marked(form), "");
  ClickLetter(form, 25);
  EXPECT_EQ(TopTerm(form), "0");
  form.Clear_Form();
  ClickLetter(form, 3);
  EXPECT_EQ(messages.Take(), QStringList{"The glossary has no letter number 4."});
}

TEST_F(GlossaryTest, KeysFindALetterAndWorkTheButtons) {
  Glossary& form = Open(Groups("ABCD"));
  for (const auto& [key, letter] : {std::pair{"Right", "A"},
                                    {"Right", "B"},
                                    {"C", "C"},
                                    {"Left", "B"},
                                    {"End", "Z"},
                                    {"Right", "Z"},
                                    {"Home", "A"},
                                    {"Left", "A"},
                                    {"Ctrl+D", "A"}}) {
    Gui::Do(form, key);
    EXPECT_EQ(Marked(form), letter);
  }
  Gui::Play(form, "focus", {{"", "MSFlexGrid2"}, {"Tab, PgDown x2", "MSFlexGrid1"}});
  EXPECT_GT(List(form).TopRow(), 0);
  EXPECT_EQ(Marked(form), "");
  Gui::Play(form, "Glos_Close Glos_Print",
            {{"Return, Esc", "off|off"}, {"Tab x2", "on|off"}, {"Return", "-|-"}});
  EXPECT_EQ(LoadedForm<Glossary>(), &form);
  EXPECT_EQ(form.focusWidget(), &Strip(form));
}

TEST_F(GlossaryTest, CloseAndTheCloseBoxKeepTheGlossary) {
  Glossary& form = Open(Groups("AB"));
  for (const char* way : {"click Glos_Close", "close"}) {
    form.Show();
    Gui::Play(form, "Glos_Close", {{way, "-"}});
  }
  EXPECT_EQ(Letters(form), "ABZ");
  messages.Answer({MsgAnswer::Yes});
  Default<Form1>().close();
  EXPECT_EQ(quits, 1);  // hidden, it does not keep the program
}

TEST_F(GlossaryTest, PrintsThePagesThatWereChosen) {
  Glossary& form = Open(Groups("ABCDEFGHIJ", 12));
  const int pages = form.Document().PageCount();
  ASSERT_GT(pages, 3);
  const QString file = store.PathBeside("printed.pdf");
  AnswerPrintDialogs([&](QPrinter& printer, PrintDialog& dialog) {
    EXPECT_TRUE(dialog.FromPage == 1 && dialog.ToPage == pages && dialog.Max == pages);
    EXPECT_EQ(dialog.Flags, 0x100004);
    printer.setOutputFileName(file);
    dialog.FromPage = 2;
    dialog.ToPage = 3;
    return true;
  });
  Gui::Click(form, "Glos_Print");
  const QByteArray printed = store.Read(file);
  EXPECT_TRUE(printed.contains("/Count 2"));
  EXPECT_TRUE(printed.contains(QByteArray("\0G\0l\0o\0s\0s\0a\0r\0y\0 \0P\0r\0i\0n\0t\0 \0J\0o\0b", 35)));
}

TEST_F(GlossaryTest, ACancelledOrFailedPrintIsQuiet) {
  Glossary& form = Open(Groups("AB"));
  int asked = 0;
  for (const bool accepted : {false, true}) {
    AnswerPrintDialogs([&](QPrinter& printer, PrintDialog&) {
      ++asked;
      printer.setOutputFileName(store.PathBeside("no/such/folder/printed.pdf"));
      return accepted;
    });
    Gui::Play(form, "said Glos_Close", {{"point Glos_Print, Return", "|off"}});
  }
  EXPECT_EQ(asked, 2);
}

TEST_F(GlossaryTest, WithoutAFileOrWithOneThatCannotBeReadItIsEmpty) {
  for (const bool there : {false, true}) {
    if (there) {
      store.Write("Glossary.txt", {});
      ASSERT_TRUE(QFile(store.Path("Glossary.txt")).resize(17 * 1024 * 1024));
    }
    ReadAs("Ann", "Lee");
    Glossary& form = *LoadedForm<Glossary>();
    form.Show();
    EXPECT_EQ(Rows(form) + Letters(form) + form.Document().Text(), "|");
    Gui::Play(form, "said", {{"Right", ""}});
    OneCopyAgain();
  }
}

TEST_F(GlossaryTest, ALargeOneIsReadInPartsAndWholeWhenItShows) {
  Glossary& form = Read(Groups("ABCDEFGHIJ", 1000));
  const int first = List(form).Rows();
  EXPECT_LT(first, 30000);
  clock.Advance(20);
  EXPECT_GT(List(form).Rows(), first);
  form.Show();
  EXPECT_EQ(List(form).Rows(), 10 * (2 + 1000 * 3) + 2);
  EXPECT_EQ(Letters(form), "ABCDEFGHIJZ");
  EXPECT_EQ(form.Document().Text().count("Meaning."), 10000);
}

}  // namespace
