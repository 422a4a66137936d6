// The heart of the RTF reader: walks the tokens, keeps the stack of groups and sends text where its
// group wants it. The files of control words work on it; nobody else does.
#pragma once

#include "pages/common/PageBudget.h"
#include "pages/common/RichText.h"
#include "pages/rtf/RtfBuilder.h"
#include "pages/rtf/RtfField.h"
#include "pages/rtf/RtfFlow.h"
#include "pages/rtf/RtfFormats.h"
#include "pages/rtf/RtfHeader.h"
#include "pages/rtf/RtfPicture.h"
#include "pages/rtf/RtfText.h"
#include "pages/rtf/RtfTokens.h"
#include "pages/rtf/RtfWords.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

// Where the text of a group goes.
enum class RtfDestination : unsigned char {
  Body,
  Skip,
  Twice,  // its first group tells something for old readers, its second in Unicode
  FontTable,
  OtherFontName,
  ColourTable,
  StyleSheet,
  ListLevelText,
  OldListBefore,
  OldListAfter,
  FieldInstruction,
  FormChoice,
  PlaceName,
  ObjectName,
  ShapeName,
  ShapeValue,
  Picture,
  Other,  // a group whose own text is of no use, though groups in it may be
};

// What a group must do at its end.
enum class RtfGroupEnd : unsigned char {
  Nothing,
  Font,
  Style,
  List,
  ListLevel,
  ListOverride,
  LevelOverride,
  OldList,
  Field,
  PlaceName,
  Picture,
  ShapeProperty,
  Object,
  NestedRow,
  Aside,
};

// What has the border that is being described; nothing: something without one here.
enum class RtfBorderOf : unsigned char { Nothing, Paragraph, Cell, Row, Page };

// What a group makes of its text.
struct RtfGroup {
  RtfDestination Destination = RtfDestination::Body;
  RtfDestination Outer = RtfDestination::Body;  // of what is told twice
  RtfGroupEnd AtEnd = RtfGroupEnd::Nothing;
  bool IsFootnote = false;
  bool IsBackground = false;  // the group describes what lies behind the page
  int CodePage = 1252;        // of the text that comes
  int FallbackCount = 1;      // characters behind a \u that stand in for it
  int Field = -1;             // number of the field the group is in
  int Object = -1;            // number of the object the group is in

  bool operator==(const RtfGroup&) const = default;
};

// With how it looks.
struct RtfState : RtfGroup {
  RtfCharProps Chars;
  RtfCharProps LeftToRight;  // what holds again behind letters that run from right to left
  bool IsRightToLeft = false;
  RtfParaProps Para;
  RtfTab NextTab;  // whose place comes next
};

class RtfParser {
 public:
  RtfParser(std::string_view bytes, const PageMetrics& metrics);

  RichPage Read();

  // For the control words.
  RtfState& State() { return states_.back(); }
  RtfHeader& Header() { return header_; }
  RtfFlow& Flow() { return flow_; }
  void SetDestination(RtfDestination destination, RtfGroupEnd atEnd = RtfGroupEnd::Nothing);
  bool IsIn(RtfDestination destination) const { return states_.back().Destination == destination; }
  void AddCharacter(QChar character);
  void AddUnicode(int value);
  void AddText(const QString& text);
  void SetFont(int number);  // in the font table: the font that is described next
  void SetPlain();
  void EndParagraph();
  void EndParagraphWithText();  // nothing when it is empty
  void EndCell(bool isNested);
  void EndRow(bool isNested);
  void ApplyStyle(int number);

  // Things that are being read; the control words fill them in.
  struct ColourParts {
    int Red = 0, Green = 0, Blue = 0;
    bool IsGiven = false;
  };
  ColourParts& Colour() { return colour_; }
  // A shape on the page. Its places are twips, and mean nothing in a group of shapes.
  struct ShapeParts {
    int Left = 0, Top = 0, Right = 0, Bottom = 0;
    bool IsShown = false;  // its text or picture came
  };
  ShapeParts& Shape() { return shape_; }
  RtfFont& Font() { return font_; }
  RtfPicture& Picture() { return picture_; }
  RtfList& List() { return list_; }
  int& ListId() { return listId_; }
  int& ListNumber() { return listNumber_; }
  void BeginListOverride();
  void BeginLevelOverride();
  bool& HasOverrideStart() { return hasOverrideStart_; }
  void SetOverrideStart(int number);
  RtfOldList& OldList() { return oldList_; }
  void SetHasListText();  // the paragraph brings its own bullet or number
  // Whether the group shares its look with those around it; it gets no place of its own on the page.
  bool IsDeep() const { return !deepGroups_.empty(); }
  void BeginTwice();
  void ClearName() { name_.clear(); }
  RtfCellProps& NextCell() { return nextCell_; }
  // Says which border the words of lines speak of from here on: a side, of a row also the lines within it.
  // kSideCount of a paragraph is all four sides.
  void BeginBorder(RtfBorderOf owner, size_t side);
  std::span<RtfBorder> Borders();  // good until the next token

  void BeginFont(int number);
  void BeginField();
  void BeginFieldResult();
  void SetFieldState(int state);       // of a form field: 0 or 1 of a box, the place of a choice from 0
  void SetFieldUsualState(int state);  // what holds where the state is none of these
  void BeginFieldChoice();             // its text comes
  void BeginObject();
  void SetObjectSize(int width, int height);  // 0: leave as it is
  void BeginObjectResult();
  void BeginPicture();
  void BeginShapePicture();
  void BeginPlainPicture();  // a picture told once more for older readers
  void SetStyleNumber(int number) { styleNumber_ = number; }
  void SetStyleBase(int number) { style_.Base = number; }
  void BreakPage();
  void AddFootnoteMark();
  void BeginFootnote();

 private:
  struct Field {
    QString Instruction;
    std::optional<RtfInstruction> Read;  // the same, once it was read
    int Link = 0;
    int State = -1;  // of a form field
    int UsualState = 0;
    QStringList Choices;  // of a form field's list
    bool HasResult = false;
    bool HasShown = false;  // its result is not empty

    bool IsTicked() const { return (State == 0 || State == 1 ? State : UsualState) != 0; }
    int Choice() const { return State >= 0 && State < Choices.size() ? State : UsualState; }
    bool HasChoice() const { return Choice() >= 0 && Choice() < Choices.size(); }
  };
  struct Object {
    QString DataText;
    int Width = 0;  // twips
    int Height = 0;
    bool HasResult = false;
  };
  struct StyleWord {
    RtfHandler Handle = nullptr;
    RtfArgument Argument;
  };
  struct Style {
    static constexpr int kNoBase = -1;

    std::vector<StyleWord> Words;
    int Base = kNoBase;    // number of the style it is based on
    bool IsWhole = false;  // what it doesn't tell is as usual, not as in the other style
  };

  // Groups around a deep one, as many in a row as are the same.
  struct DeepGroup {
    RtfGroup Group;
    int Link = 0;
    bool IsHidden = false;
    int Count = 1;
  };

  void Handle(const RtfToken& token);
  void HandleSkipped(const RtfToken& token);
  void HandleWord(const RtfToken& token);
  void HandleSymbol(unsigned char symbol);
  void HandleBytes(std::string_view bytes);
  void OpenGroup();
  void CloseGroup();
  bool OpenDeepGroup();
  void CloseDeepGroup();
  void EndGroup(const RtfState& closed);
  void FlushText();
  void SendText(const QString& text);
  void SendFontName(const QString& text);
  void SendColours(const QString& text);
  void EndFont();
  void EndStyle();
  RtfParaProps PropsAtEnd();
  void EndOldList();
  void EndField(int number);
  void EndPicture();
  void EndObject(int number);
  void EndShapeProperty();
  void EndListLevel(const RtfState& closed);
  void InsertObject(Object& object);
  void InsertPicture(const QImage& image, double width, double height, int objectId);
  bool IsNumberDue();
  void NumberEmptyParagraph();
  void AddGeneratedListText();
  void NumberObjects();
  void SetUpDocument();
  void SetPageBorder(QTextFrameFormat& frame) const;

  RtfTokenizer tokens_;
  PageMetrics metrics_;
  RichPage page_;
  PageBudget budget_;
  RtfHeader header_;
  RtfFormats formats_;
  RtfBuilder builder_;
  RtfFlow flow_;
  RtfText text_;
  RtfPictureDecoder pictures_;

  std::vector<RtfState> states_;
  std::vector<DeepGroup> deepGroups_;
  size_t bareGroups_ = 0;  // open beyond the deepest one that is kept: their words count for nothing
  int fallbackLeft_ = 0;
  bool isIgnorable_ = false;  // the last token was \*
  bool isAtEnd_ = false;      // the page's own group is closed

  ColourParts colour_;
  int fontNumber_ = 0;
  RtfFont font_;
  bool isFontOpen_ = false;
  Style style_;
  int styleNumber_ = 0;
  std::unordered_map<int, Style> styles_;
  size_t styleWordsLeft_;  // that may still be repeated
  RtfList list_;
  int listId_ = 0;
  int listNumber_ = 0;
  RtfListOverride listOverride_;
  int overrideLevel_ = -1;  // the last one told of it
  bool hasOverrideStart_ = false;
  RtfOldList oldList_;
  std::vector<RtfOldList> oldLists_;
  int countedList_ = 0;  // the older list that the last numbered paragraph belongs to, and its number there
  int oldListCount_ = 0;
  bool bringsListText_ = false;  // the page tells its bullets and numbers
  RtfPicture picture_;
  bool hasShapePicture_ = false;
  ShapeParts shape_;
  RtfCellProps nextCell_;
  RtfBorderOf borderOwner_ = RtfBorderOf::Nothing;
  size_t borderSide_ = 0;
  QString name_;       // of a place
  QString shapeName_;  // of a shape's property, and its value
  QString shapeValue_;
  std::vector<Field> fields_;
  std::vector<Object> objects_;
  int footnotes_ = 0;
  bool isPageBreakDue_ = false;
};
