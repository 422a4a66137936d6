#include "pages/rtf/RtfObjects.h"

#include <QColor>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextImageFormat>
#include <QUrl>
#include <algorithm>

#include "pages/rtf/RtfParser.h"

namespace {

using P = RtfParser;
using A = RtfArgument;
using D = RtfDestination;
using E = RtfGroupEnd;
using K = RtfPictureKind;

constexpr int kSmallestObject = 15;  // twips

template <D Destination, E AtEnd = E::Nothing>
void Enter(P& parser, A) {
  parser.SetDestination(Destination, AtEnd);
}

// The lengths of a shape that a picture fills.
double FilledLength(int begin, int end) {
  return std::min<double>(static_cast<double>(end) - begin, kLongestRtfLength);
}

}  // namespace

RtfObjects::RtfObjects(RichPage& page, const PageMetrics& metrics, PageBudget& budget)
    : page_(page), metrics_(metrics), budget_(budget), decoder_(metrics) {}

void RtfObjects::AddPictureBytes(std::string_view bytes) {
  picture_.Data.append(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

void RtfObjects::EndPicture(P& parser) {
  hasShapePicture_ = true;
  RtfPicture picture;
  std::swap(picture, picture_);
  if (parser.State().Chars.IsHidden || !budget_.TakePicture()) return;
  const RtfPictureDecoder::Result decoded = decoder_.Decode(picture);
  double width = decoded.Width;
  double height = decoded.Height;
  if (parser.IsIn(D::ShapeValue)) {  // it fills its shape
    shape_.IsShown = true;
    const double shapeWidth = FilledLength(shape_.Left, shape_.Right);
    const double shapeHeight = FilledLength(shape_.Top, shape_.Bottom);
    const bool hasSize = shapeWidth > 0 && shapeHeight > 0;
    if (hasSize) width = shapeWidth;
    if (hasSize) height = shapeHeight;
  }
  InsertPicture(parser, decoded.Image, width, height, 0);
}

void RtfObjects::InsertPicture(P& parser, const QImage& image, double width, double height, int objectId) {
  const QString name = QStringLiteral("picture:%1").arg(image.cacheKey());
  page_.Document->addResource(QTextDocument::ImageResource, QUrl(name), image);
  const RtfCharProps& chars = parser.State().Chars;
  RtfFormats& formats = parser.Formats();
  QTextImageFormat format;
  if (chars.Link > 0) {
    format.setAnchor(true);
    format.setAnchorHref(formats.CharFormat(formats.NumberOf(chars)).anchorHref());
    format.setProperty(kLinkNumberProperty, chars.Link);
  }
  format.setName(name);
  // The layout does not end with a picture of no pixels.
  format.setWidth(std::max(metrics_.Pixels(width), 1.0));
  format.setHeight(std::max(metrics_.Pixels(height), 1.0));
  if (objectId > 0) format.setProperty(kObjectIdProperty, objectId);
  parser.Lists().AddDueNumber(parser);
  parser.Flow().AddInline(formats.AddInline(format));
}

RtfObjects::Object* RtfObjects::Find(int object) {
  return object < 0 ? nullptr : &objects_[static_cast<size_t>(object)];
}

void RtfObjects::AddDataText(int object, const QString& text) {
  if (Object* const found = Find(object)) AppendName(found->DataText, text);
}

void RtfObjects::End(P& parser, int number) {
  if (number < 0 || !parser.IsIn(D::Body) || parser.State().Chars.IsHidden) return;
  Object& object = *Find(number);
  object.DataText = object.DataText.trimmed();
  const bool isBare = !object.HasResult && object.Width > 0 && object.Height > 0;
  if (!object.DataText.isEmpty() || isBare) Insert(parser, object);
}

void RtfObjects::Insert(P& parser, const Object& object) {
  if (!budget_.TakeObject()) return;
  const int id = static_cast<int>(page_.Objects.size()) + 1;
  page_.Objects.append({id, object.DataText, 0});
  QImage white(8, 8, QImage::Format_RGB32);
  white.fill(Qt::white);
  InsertPicture(parser, white, std::max(object.Width, kSmallestObject),
                std::max(object.Height, kSmallestObject), id);
}

void RtfObjects::NumberInOrder() {
  QList<PageObject>& objects = page_.Objects;
  const auto isBefore = [](const PageObject& a, const PageObject& b) { return a.Position < b.Position; };
  if (std::is_sorted(objects.begin(), objects.end(), isBefore)) return;
  std::sort(objects.begin(), objects.end(), isBefore);
  QTextCursor cursor(page_.Document.get());
  for (int i = 0; i < static_cast<int>(objects.size()); ++i) {
    objects[i].Id = i + 1;
    QTextCharFormat format;
    format.setProperty(kObjectIdProperty, objects[i].Id);
    cursor.setPosition(objects[i].Position);
    cursor.setPosition(objects[i].Position + 1, QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(format);
  }
}

void RtfObjects::AddShapeName(const QString& text) {
  AppendName(shapeName_, text);
}

void RtfObjects::AddShapeValue(const QString& text) {
  AppendName(shapeValue_, text);
}

void RtfObjects::EndShapeProperty(P& parser) {
  if (parser.State().IsBackground && shapeName_.trimmed() == QLatin1String("fillColor")) {
    bool isNumber = false;
    const unsigned value = shapeValue_.trimmed().toUInt(&isNumber);  // blue in the high byte
    if (isNumber && value <= 0xFFFFFF) {
      page_.PaperColour = QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF);
    }
  }
  shapeName_.clear();
  shapeValue_.clear();
}

void RtfObjects::BeginPicture(P& parser, A) {
  const bool isWanted = (parser.IsIn(D::Body) || parser.IsIn(D::ShapeValue)) && !parser.State().IsBackground;
  parser.SetDestination(isWanted ? D::Picture : D::Skip, isWanted ? E::Picture : E::Nothing);
  parser.Objects().picture_ = {};
}

// A picture told once more for older readers.
void RtfObjects::BeginPlainPicture(P& parser, A) {
  if (parser.Objects().hasShapePicture_) parser.SetDestination(D::Skip);
  parser.Objects().hasShapePicture_ = false;
}

void RtfObjects::Begin(P& parser, A) {
  std::vector<Object>& objects = parser.Objects().objects_;
  parser.SetDestination(parser.State().Destination, E::Object);
  parser.State().Object = static_cast<int>(objects.size());
  objects.emplace_back();
}

void RtfObjects::BeginResult(P& parser, A) {
  Object* const object = parser.Objects().Find(parser.State().Object);
  if (object == nullptr) return;
  // What stands in for an object that has data of its own is for readers that can't show it.
  if (!object->DataText.trimmed().isEmpty()) {
    parser.SetDestination(D::Skip);
  } else {
    object->HasResult = true;
  }
}

void RtfObjects::BeginShape(P& parser, A) {
  parser.SetDestination(D::Other);
  parser.Objects().shape_ = {};
}

void RtfObjects::BeginBox(P& parser, A) {
  parser.Objects().shape_.IsShown = true;
  if (parser.IsDeep()) {
    parser.SetDestination(D::Body);
    return;
  }
  parser.SetDestination(D::Body, E::Aside);
  parser.SetPlain();
  parser.State().Para = {};
  parser.Flow().BeginAside(RtfFlow::Aside::Box);
}

// What stands in for a shape is for readers that can't show the shape, which here are those that draw none.
void RtfObjects::BeginShapeResult(P& parser, A argument) {
  if (parser.Objects().shape_.IsShown || parser.State().IsBackground) {
    parser.SetDestination(D::Skip);
  } else {
    BeginBox(parser, argument);
  }
}

void RtfObjects::BeginBackground(P& parser, A) {
  parser.SetDestination(D::Other);
  parser.State().IsBackground = true;
}

template <int RtfPicture::*Number>
void RtfObjects::Measure(P& parser, A argument) {
  constexpr int kMost = 1'000'000;
  parser.Objects().picture_.*Number = std::clamp(argument.Number, -kMost, kMost);
}

template <RtfPictureKind Kind>
void RtfObjects::SetKind(P& parser, A) {
  parser.Objects().picture_.Kind = Kind;
}

template <int RtfObjects::Object::*Length>
void RtfObjects::SetSize(P& parser, A argument) {
  Object* const object = parser.Objects().Find(parser.State().Object);
  if (object != nullptr && argument.Number > 0)
    object->*Length = std::min(argument.Number, kLongestRtfLength);
}

template <int RtfObjects::Shape::*Place>
void RtfObjects::SetPlace(P& parser, A argument) {
  parser.Objects().shape_.*Place = argument.Number;
}

std::span<const RtfWord> RtfObjects::Words() {
  static constexpr RtfWord kWords[] = {
      {"pict", BeginPicture},
      {"shppict", [](P& p, A) { p.Objects().hasShapePicture_ = false; }},
      {"nonshppict", BeginPlainPicture},
      {"pngblip", SetKind<K::Png>},
      {"jpegblip", SetKind<K::Jpeg>},
      {"dibitmap", SetKind<K::Dib>},
      {"wbitmap", SetKind<K::DeviceBitmap>},
      {"wmetafile", SetKind<K::Metafile>},
      {"pmmetafile", SetKind<K::Metafile>},
      {"emfblip", SetKind<K::Metafile>},
      {"macpict", SetKind<K::Metafile>},
      {"picw", Measure<&RtfPicture::Width>},
      {"pich", Measure<&RtfPicture::Height>},
      {"picwgoal", Measure<&RtfPicture::GoalWidth>},
      {"pichgoal", Measure<&RtfPicture::GoalHeight>},
      {"picscalex", Measure<&RtfPicture::ScaleX>},
      {"picscaley", Measure<&RtfPicture::ScaleY>},
      {"piccropl", Measure<&RtfPicture::CropLeft>},
      {"piccropt", Measure<&RtfPicture::CropTop>},
      {"piccropr", Measure<&RtfPicture::CropRight>},
      {"piccropb", Measure<&RtfPicture::CropBottom>},
      {"wbmbitspixel", Measure<&RtfPicture::BitsPerPixel>},
      {"wbmwidthbytes", Measure<&RtfPicture::BytesPerLine>},
      {"blipuid", Enter<D::Skip>},
      {"object", Begin},
      {"objname", Enter<D::ObjectName>},
      {"objw", SetSize<&Object::Width>},
      {"objh", SetSize<&Object::Height>},
      {"result", BeginResult},
      {"objdata", Enter<D::Skip>},
      {"objclass", Enter<D::Skip>},
      {"objalias", Enter<D::Skip>},
      {"objsect", Enter<D::Skip>},
      {"shp", BeginShape},
      {"shpgrp", BeginShape},
      {"shpinst", Enter<D::Other>},
      {"shpleft", SetPlace<&Shape::Left>},
      {"shptop", SetPlace<&Shape::Top>},
      {"shpright", SetPlace<&Shape::Right>},
      {"shpbottom", SetPlace<&Shape::Bottom>},
      {"shprslt", BeginShapeResult},
      {"do", Enter<D::Other>},
      {"shptxt", BeginBox},
      {"dptxbxtext", BeginBox},
      {"background", BeginBackground},
      {"sp", Enter<D::Other, E::ShapeProperty>},
      {"sn", Enter<D::ShapeName>},
      {"sv", Enter<D::ShapeValue>},
  };
  return kWords;
}
