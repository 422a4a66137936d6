// What stands in the text of an RTF page and is no text: pictures, shapes with their texts and pictures, and
// embedded objects; with the words that describe them.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <span>
#include <string_view>
#include <vector>

#include "pages/common/PageBudget.h"
#include "pages/common/RichText.h"
#include "pages/rtf/RtfPicture.h"
#include "pages/rtf/RtfWords.h"

class RtfObjects {
 public:
  // All three must outlive the objects.
  RtfObjects(RichPage& page, const PageMetrics& metrics, PageBudget& budget);

  static std::span<const RtfWord> Words();

  // What stands in the group of a picture.
  void AddPictureHex(std::string_view digits) { picture_.AddHex(digits); }
  void AddPictureBytes(std::string_view bytes);
  void EndPicture(RtfParser& parser);

  // The data text of an object; nothing for a number below 0.
  void AddDataText(int object, const QString& text);
  void End(RtfParser& parser, int object);

  // A property of a shape.
  void AddShapeName(const QString& text);
  void AddShapeValue(const QString& text);
  void EndShapeProperty(RtfParser& parser);

  // Gives the objects their numbers in the order of the document: one of a note stands at the end of the
  // page, wherever its note hangs.
  void NumberInOrder();

 private:
  struct Object {
    QString DataText;
    int Width = 0;  // twips
    int Height = 0;
    bool HasResult = false;
  };
  // A shape on the page. Its places are twips, and mean nothing in a group of shapes.
  struct Shape {
    int Left = 0, Top = 0, Right = 0, Bottom = 0;
    bool IsShown = false;  // its text or picture came
  };

  static void BeginPicture(RtfParser& parser, RtfArgument argument);
  static void BeginPlainPicture(RtfParser& parser, RtfArgument argument);
  static void Begin(RtfParser& parser, RtfArgument argument);
  static void BeginResult(RtfParser& parser, RtfArgument argument);
  static void BeginShape(RtfParser& parser, RtfArgument argument);
  static void BeginShapeResult(RtfParser& parser, RtfArgument argument);
  static void BeginBox(RtfParser& parser, RtfArgument argument);
  static void BeginBackground(RtfParser& parser, RtfArgument argument);
  template <int RtfPicture::*Number>
  static void Measure(RtfParser& parser, RtfArgument argument);
  template <RtfPictureKind Kind>
  static void SetKind(RtfParser& parser, RtfArgument argument);
  template <int Object::*Length>
  static void SetSize(RtfParser& parser, RtfArgument argument);
  template <int Shape::*Place>
  static void SetPlace(RtfParser& parser, RtfArgument argument);

  Object* Find(int object);  // null below 0
  void Insert(RtfParser& parser, const Object& object);
  void InsertPicture(RtfParser& parser, const QImage& image, double width, double height, int objectId);

  RichPage& page_;
  const PageMetrics& metrics_;
  PageBudget& budget_;
  RtfPictureDecoder decoder_;
  RtfPicture picture_;
  bool hasShapePicture_ = false;
  Shape shape_;
  QString shapeName_;  // of a shape's property, and its value
  QString shapeValue_;
  std::vector<Object> objects_;
};
