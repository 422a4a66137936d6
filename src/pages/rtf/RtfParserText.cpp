// The half of the parser that sends text where its group wants it.
#include "pages/common/SymbolFonts.h"
#include "pages/rtf/RtfParser.h"

#include <QColor>
#include <QTextDocument>
#include <QTextImageFormat>
#include <QUrl>
#include <algorithm>

namespace {

constexpr qsizetype kLongestName = 4096;  // characters of names, instructions and data texts
constexpr qsizetype kLongestFontName = 100;
constexpr int kLongestTemplate = 255;  // of a list level, characters
constexpr size_t kMostColours = 4096;
constexpr size_t kMostFonts = 4096;
constexpr size_t kMostFields = 200'000;
constexpr qsizetype kMostChoices = 25;  // of a form field, as many as its program takes
constexpr size_t kMostOldLists = 4096;
constexpr char16_t kEmptyBox = 0x2610, kTickedBox = 0x2612;

void AddTo(QString& name, const QString& text) {
  if (name.size() < kLongestName) name += text.left(kLongestName - name.size());
}

}  // namespace

void RtfParser::AddCharacter(QChar character) {
  text_.AddCharacter(character);
}

void RtfParser::AddUnicode(int value) {
  if (IsIn(RtfDestination::ListLevelText)) {
    // The font that says what it means comes only behind it.
    text_.AddCharacter(QChar(static_cast<char16_t>(value)));
  } else {
    text_.AddUnicode(value, State().CodePage);
  }
}

void RtfParser::FlushText() {
  if (text_.IsEmpty()) return;
  SendText(text_.Take(IsIn(RtfDestination::ListLevelText)));
}

void RtfParser::AddText(const QString& text) {
  FlushText();
  SendText(text);
}

void RtfParser::SendText(const QString& text) {
  RtfState& state = State();
  switch (state.Destination) {
    case RtfDestination::Body:
      if (state.Chars.IsHidden || text.isEmpty()) return;
      // Blanks alone may stand in front of the number that the page brings.
      if (IsNumberDue() && !text.trimmed().isEmpty()) AddGeneratedListText();
      if (state.Field >= 0) fields_[static_cast<size_t>(state.Field)].HasShown = true;
      flow_.AddText(text, formats_.NumberOf(state.Chars));
      return;
    case RtfDestination::FontTable: SendFontName(text); return;
    case RtfDestination::OtherFontName: font_.OtherName += text.left(kLongestFontName); return;
    case RtfDestination::ColourTable: SendColours(text); return;
    case RtfDestination::ListLevelText:
      if (!list_.Levels.empty()) AddTo(list_.Levels.back().Template, text);
      return;
    case RtfDestination::OldListBefore: AddTo(oldList_.Before, text); return;
    case RtfDestination::OldListAfter: AddTo(oldList_.After, text); return;
    case RtfDestination::FieldInstruction:
      if (state.Field >= 0) AddTo(fields_[static_cast<size_t>(state.Field)].Instruction, text);
      return;
    case RtfDestination::FormChoice: {
      // A field in the choice has none of its own.
      QStringList& choices = fields_[static_cast<size_t>(state.Field)].Choices;
      if (!choices.isEmpty()) AddTo(choices.last(), text);
      return;
    }
    case RtfDestination::PlaceName: AddTo(name_, text); return;
    case RtfDestination::ObjectName:
      if (state.Object >= 0) AddTo(objects_[static_cast<size_t>(state.Object)].DataText, text);
      return;
    case RtfDestination::ShapeName: AddTo(shapeName_, text); return;
    case RtfDestination::ShapeValue: AddTo(shapeValue_, text); return;
    case RtfDestination::Skip:
    case RtfDestination::Twice:
    case RtfDestination::StyleSheet:
    case RtfDestination::Picture:
    case RtfDestination::Other: return;
  }
}

void RtfParser::SetHasListText() {
  flow_.SetHasListText();
  bringsListText_ = true;
}

// Whether the paragraph is to begin with a bullet or number that has not come.
bool RtfParser::IsNumberDue() {
  const RtfState& state = State();
  const bool isInList = state.Para.List > 0 || state.Para.OldList > 0;
  return isInList && !state.Chars.IsHidden && !flow_.HasListText() && flow_.IsParagraphBlank();
}

// Pages that bring their numbers bring them for the empty paragraphs too that are to have one.
void RtfParser::NumberEmptyParagraph() {
  if (!bringsListText_ && IsNumberDue()) AddGeneratedListText();
}

void RtfParser::AddGeneratedListText() {
  flow_.SetHasListText();
  const RtfParaProps& props = State().Para;
  QString text;
  if (props.List > 0) {
    text = NextListText(header_, props.List, props.ListLevel);
  } else if (!bringsListText_) {
    oldListCount_ = countedList_ == props.OldList ? oldListCount_ + 1 : 1;
    countedList_ = props.OldList;
    text = OldListText(oldLists_[static_cast<size_t>(props.OldList) - 1], oldListCount_);
  }
  // It looks as the paragraph does, not as the link or the marked word that the paragraph begins with.
  RtfCharProps look = State().Chars;
  if (look.Link > 0) look.Colour = 0;
  look.Link = 0;
  look.Underline = RtfUnderline::None;
  look.Shade = {};
  look.Script = RtfScript::Normal;
  flow_.AddText(text, formats_.NumberOf(look));
}

void RtfParser::BeginListOverride() {
  listId_ = 0;
  listNumber_ = 0;
  listOverride_ = {};
  overrideLevel_ = -1;
}

void RtfParser::BeginLevelOverride() {
  SetDestination(RtfDestination::Other, RtfGroupEnd::LevelOverride);
  ++overrideLevel_;
  hasOverrideStart_ = false;
}

void RtfParser::SetOverrideStart(int number) {
  const bool isLevel = overrideLevel_ >= 0 && overrideLevel_ < kListLevels;
  if (isLevel && hasOverrideStart_ && number >= 0)
    listOverride_.StartAt[static_cast<size_t>(overrideLevel_)] = number;
}

void RtfParser::EndOldList() {
  if (oldLists_.empty() || oldLists_.back() != oldList_) {
    if (oldLists_.size() >= kMostOldLists) return;
    oldLists_.push_back(oldList_);
  }
  State().Para.OldList = static_cast<int>(oldLists_.size());
}

void RtfParser::BeginTwice() {
  const RtfDestination outer = State().Destination;
  SetDestination(RtfDestination::Twice);
  State().Outer = outer;
}

void RtfParser::SendFontName(const QString& text) {
  for (const QChar c : text) {
    if (c == u';') {
      EndFont();
    } else if (font_.Name.size() < kLongestFontName) {
      font_.Name += c;
    }
  }
}

void RtfParser::BeginFont(int number) {
  EndFont();
  fontNumber_ = number;
  isFontOpen_ = true;
}

void RtfParser::EndFont() {
  if (isFontOpen_ && header_.Fonts.size() < kMostFonts) {
    font_.Name = font_.Name.trimmed();
    font_.OtherName = font_.OtherName.trimmed();
    const bool isSymbolName = font_.Name.startsWith(QLatin1String("Wingdings"), Qt::CaseInsensitive) ||
                              font_.Name.compare(QLatin1String("Symbol"), Qt::CaseInsensitive) == 0;
    if (IsSymbolCodePage(font_.CodePage) || isSymbolName) font_.CodePage = SymbolCodePageOf(font_.Name);
    header_.Fonts[fontNumber_] = font_;
  }
  isFontOpen_ = false;
  font_ = {};
}

void RtfParser::SendColours(const QString& text) {
  for (const QChar c : text) {
    if (c != u';') continue;
    const auto part = [](int value) { return std::clamp(value, 0, 255); };
    const QColor colour(part(colour_.Red), part(colour_.Green), part(colour_.Blue));
    if (header_.Colours.size() < kMostColours) header_.Colours.push_back(colour_.IsGiven ? colour : QColor());
    colour_ = {};
  }
}

void RtfParser::EndListLevel(const RtfState& closed) {
  if (list_.Levels.empty()) return;
  RtfListLevel& level = list_.Levels.back();
  // The first character counts the others; behind them stands a semicolon.
  const int length =
      level.Template.isEmpty() ? 0 : std::min<int>(level.Template.at(0).unicode(), kLongestTemplate);
  level.Template = level.Template.mid(1, length);
  const int codePage = header_.CodePageOf(closed.Chars.Font);
  for (QChar& c : level.Template) {
    const char16_t code = c.unicode();
    const bool isPrivate = code >= 0xF020 && code <= 0xF0FF;
    if (isPrivate)
      c = QChar(SymbolTable(IsSymbolCodePage(codePage) ? codePage : kSymbolCodePage)[code & 0xFF]);
  }
}

void RtfParser::BeginField() {
  if (fields_.size() >= kMostFields) return;
  SetDestination(State().Destination, RtfGroupEnd::Field);
  State().Field = static_cast<int>(fields_.size());
  fields_.emplace_back();
}

void RtfParser::BeginFieldResult() {
  if (State().Field < 0) return;
  Field& field = fields_[static_cast<size_t>(State().Field)];
  // The instruction's own groups never hold a result that is shown.
  if (IsIn(RtfDestination::FieldInstruction)) return;
  field.HasResult = true;
  // A list shows its choice, whatever was shown when the page was written.
  if (field.HasChoice()) {
    SetDestination(RtfDestination::Skip);
    return;
  }
  // Of several results all have the link of the first: a long instruction is not read for each of them.
  if (!field.Read && !field.Instruction.isEmpty()) {
    field.Read = ReadInstruction(field.Instruction);
    if (field.Read->Link.Kind != 0) field.Link = formats_.AddLink(field.Read->Link);
  }
  if (field.Link != 0) State().Chars.Link = field.Link;
}

void RtfParser::EndField(int number) {
  if (number < 0) return;
  Field& field = fields_[static_cast<size_t>(number)];
  if (IsIn(RtfDestination::Body)) {
    if (!field.Read) field.Read = ReadInstruction(field.Instruction);
    if (!field.HasResult) SendText(field.Read->Symbol);
    if (!field.HasShown && field.Read->IsCheckBox)
      SendText(QString(QChar(field.IsTicked() ? kTickedBox : kEmptyBox)));
    if (field.HasChoice()) SendText(field.Choices[field.Choice()]);
  }
  field.Instruction.clear();
  field.Choices.clear();
  field.Read.reset();
}

void RtfParser::SetFieldState(int state) {
  if (State().Field >= 0) fields_[static_cast<size_t>(State().Field)].State = state;
}

void RtfParser::SetFieldUsualState(int state) {
  if (State().Field >= 0) fields_[static_cast<size_t>(State().Field)].UsualState = state;
}

void RtfParser::BeginFieldChoice() {
  QStringList* const choices =
      State().Field >= 0 ? &fields_[static_cast<size_t>(State().Field)].Choices : nullptr;
  if (choices == nullptr || choices->size() >= kMostChoices) {
    SetDestination(RtfDestination::Skip);
  } else {
    SetDestination(RtfDestination::FormChoice);
    choices->append(QString());
  }
}

void RtfParser::BeginPicture() {
  const bool isWanted = IsIn(RtfDestination::Body) || IsIn(RtfDestination::ShapeValue);
  SetDestination(isWanted && !State().IsBackground ? RtfDestination::Picture : RtfDestination::Skip,
                 isWanted && !State().IsBackground ? RtfGroupEnd::Picture : RtfGroupEnd::Nothing);
  picture_ = {};
}

void RtfParser::BeginShapePicture() {
  hasShapePicture_ = false;
}

void RtfParser::BeginPlainPicture() {
  if (hasShapePicture_) SetDestination(RtfDestination::Skip);
  hasShapePicture_ = false;
}

void RtfParser::EndPicture() {
  hasShapePicture_ = true;
  RtfPicture picture;
  std::swap(picture, picture_);
  if (State().Chars.IsHidden || !budget_.TakePicture()) return;
  const RtfPictureDecoder::Result decoded = pictures_.Decode(picture);
  double width = decoded.Width;
  double height = decoded.Height;
  if (IsIn(RtfDestination::ShapeValue)) {  // it fills its shape
    shape_.IsShown = true;
    const double shapeWidth = static_cast<double>(shape_.Right) - shape_.Left;
    const double shapeHeight = static_cast<double>(shape_.Bottom) - shape_.Top;
    const bool hasSize = shapeWidth > 0 && shapeHeight > 0;
    if (hasSize) width = std::min<double>(shapeWidth, kLongestRtfLength);
    if (hasSize) height = std::min<double>(shapeHeight, kLongestRtfLength);
  }
  InsertPicture(decoded.Image, width, height, 0);
}

void RtfParser::InsertPicture(const QImage& image, double width, double height, int objectId) {
  const QString name = QStringLiteral("picture:%1").arg(image.cacheKey());
  page_.Document->addResource(QTextDocument::ImageResource, QUrl(name), image);
  QTextImageFormat format;
  if (State().Chars.Link > 0) {
    const QTextCharFormat& text = formats_.CharFormat(formats_.NumberOf(State().Chars));
    format.setAnchor(true);
    format.setAnchorHref(text.anchorHref());
    format.setProperty(kLinkNumberProperty, State().Chars.Link);
  }
  format.setName(name);
  // The layout does not end with a picture of no pixels.
  format.setWidth(std::max(metrics_.Pixels(width), 1.0));
  format.setHeight(std::max(metrics_.Pixels(height), 1.0));
  if (objectId > 0) format.setProperty(kObjectIdProperty, objectId);
  if (IsNumberDue()) AddGeneratedListText();
  flow_.AddInline(formats_.AddInline(format));
}

void RtfParser::BeginObject() {
  SetDestination(State().Destination, RtfGroupEnd::Object);
  State().Object = static_cast<int>(objects_.size());
  objects_.emplace_back();
}

void RtfParser::SetObjectSize(int width, int height) {
  if (State().Object < 0) return;
  Object& object = objects_[static_cast<size_t>(State().Object)];
  if (width > 0) object.Width = std::min(width, kLongestRtfLength);
  if (height > 0) object.Height = std::min(height, kLongestRtfLength);
}

void RtfParser::BeginObjectResult() {
  if (State().Object < 0) return;
  Object& object = objects_[static_cast<size_t>(State().Object)];
  // What stands in for an object that has data of its own is for readers that can't show it.
  if (!object.DataText.trimmed().isEmpty()) {
    SetDestination(RtfDestination::Skip);
  } else {
    object.HasResult = true;
  }
}

void RtfParser::EndObject(int number) {
  if (number < 0 || !IsIn(RtfDestination::Body) || State().Chars.IsHidden) return;
  Object& object = objects_[static_cast<size_t>(number)];
  object.DataText = object.DataText.trimmed();
  const bool isBare = !object.HasResult && object.Width > 0 && object.Height > 0;
  if (!object.DataText.isEmpty() || isBare) InsertObject(object);
}

void RtfParser::InsertObject(Object& object) {
  if (!budget_.TakeObject()) return;
  const int id = static_cast<int>(page_.Objects.size()) + 1;
  page_.Objects.append({id, object.DataText, 0});
  QImage white(8, 8, QImage::Format_RGB32);
  white.fill(Qt::white);
  InsertPicture(white, std::max(object.Width, 15), std::max(object.Height, 15), id);
}

void RtfParser::EndShapeProperty() {
  if (State().IsBackground && shapeName_.trimmed() == QLatin1String("fillColor")) {
    bool isNumber = false;
    const unsigned value = shapeValue_.trimmed().toUInt(&isNumber);  // blue in the high byte
    if (isNumber && value <= 0xFFFFFF) {
      page_.PaperColour = QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF);
    }
  }
  shapeName_.clear();
  shapeValue_.clear();
}

void RtfParser::AddFootnoteMark() {
  // In the text the mark comes in front of its footnote.
  AddText(QString::number(State().IsFootnote ? footnotes_ : footnotes_ + 1));
}

void RtfParser::BeginFootnote() {
  if (IsDeep()) return;
  SetDestination(RtfDestination::Body, RtfGroupEnd::Aside);
  State().IsFootnote = true;
  flow_.BeginAside(RtfFlow::Aside::Footnote);
  ++footnotes_;
}
