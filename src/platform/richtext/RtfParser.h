// The heart of the RTF reader: walks the tokens, keeps the stack of groups and sends text where its
// group wants it. The files of control words work on it; nobody else does.
#pragma once

#include "platform/richtext/RichText.h"
#include "platform/richtext/RtfBuilder.h"
#include "platform/richtext/RtfFlow.h"
#include "platform/richtext/RtfFormats.h"
#include "platform/richtext/RtfHeader.h"
#include "platform/richtext/RtfPicture.h"
#include "platform/richtext/RtfText.h"
#include "platform/richtext/RtfTokens.h"
#include "platform/richtext/RtfWords.h"

#include <QByteArray>
#include <QString>
#include <string_view>
#include <unordered_map>
#include <vector>

// Where the text of a group goes.
enum class RtfDestination : unsigned char {
  Body,
  Skip,
  FontTable,
  ColourTable,
  StyleSheet,
  ListLevelText,
  FieldInstruction,
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
  Field,
  PlaceName,
  Picture,
  ShapeProperty,
  Object,
  NestedRow,
  Aside,
};

struct RtfState {
  RtfCharProps Chars;
  RtfParaProps Para;
  RtfDestination Destination = RtfDestination::Body;
  RtfGroupEnd AtEnd = RtfGroupEnd::Nothing;
  RtfAlign NextTab = RtfAlign::Left;  // of the tab whose place comes next
  int CodePage = 1252;                // of the text that comes
  int FallbackCount = 1;              // characters behind a \u that stand in for it
  int Field = -1;                     // number of the field the group is in
  int Object = -1;                    // number of the object the group is in
  bool IsFootnote = false;
  bool IsBackground = false;  // the group describes what lies behind the page
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
  void SetFont(int number);
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
  RtfFont& Font() { return font_; }
  RtfPicture& Picture() { return picture_; }
  RtfList& List() { return list_; }
  int& ListId() { return listId_; }
  int& ListNumber() { return listNumber_; }
  void ClearName() { name_.clear(); }
  RtfCellProps& NextCell() { return nextCell_; }
  // The border that the words of lines speak of, in the row's or the next cell's description; null: of
  // something that has no border here. Only good until the next description begins.
  void BeginBorder(RtfBorder* border) { border_ = border; }
  RtfBorder* Border() { return border_; }

  void BeginFont(int number);
  void BeginField();
  void BeginFieldResult();
  void BeginObject();
  void SetObjectSize(int width, int height);  // 0: leave as it is
  void BeginObjectResult();
  void BeginPicture();
  void BeginShapePicture();
  void BeginPlainPicture();  // a picture told once more for older readers
  void SetStyleNumber(int number) { styleNumber_ = number; }
  void BreakPage();
  void AddFootnoteMark();
  void BeginFootnote();

 private:
  struct Field {
    QString Instruction;
    int Link = 0;
    bool HasResult = false;
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
  using Style = std::vector<StyleWord>;

  void Handle(const RtfToken& token);
  void HandleSkipped(const RtfToken& token);
  void HandleWord(const RtfToken& token);
  void HandleSymbol(unsigned char symbol);
  void HandleBytes(std::string_view bytes);
  void OpenGroup();
  void CloseGroup();
  void EndGroup(const RtfState& closed);
  void FlushText();
  void SendText(const QString& text);
  void SendFontName(const QString& text);
  void SendColours(const QString& text);
  void EndFont();
  void EndStyle();
  void EndField(int number);
  void EndPicture();
  void EndObject(int number);
  void EndShapeProperty();
  void EndListLevel(const RtfState& closed);
  void InsertObject(Object& object);
  void InsertPicture(const QImage& image, double width, double height, int objectId);
  void AddGeneratedListText();
  void SetUpDocument();

  RtfTokenizer tokens_;
  PageMetrics metrics_;
  RichPage page_;
  RtfHeader header_;
  RtfFormats formats_;
  RtfBuilder builder_;
  RtfFlow flow_;
  RtfText text_;
  RtfPictureDecoder pictures_;

  std::vector<RtfState> states_;
  size_t tooDeep_ = 0;  // groups open beyond the deepest that is kept
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
  RtfList list_;
  int listId_ = 0;
  int listNumber_ = 0;
  RtfPicture picture_;
  int pictureCount_ = 0;
  bool hasShapePicture_ = false;
  RtfCellProps nextCell_;
  RtfBorder* border_ = nullptr;
  QString name_;       // of a place
  QString shapeName_;  // of a shape's property, and its value
  QString shapeValue_;
  std::vector<Field> fields_;
  std::vector<Object> objects_;
  int footnotes_ = 0;
  bool isPageBreakDue_ = false;
};
