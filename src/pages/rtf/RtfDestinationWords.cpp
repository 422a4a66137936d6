// Control words that open a group with a meaning of its own, and the words that are used in them.
#include "pages/rtf/RtfParser.h"
#include "pages/rtf/RtfWords.h"

namespace {

using P = RtfParser;
using A = RtfArgument;
using D = RtfDestination;
using E = RtfGroupEnd;

template <D Destination, E AtEnd = E::Nothing>
void Begin(P& parser, A) {
  parser.SetDestination(Destination, AtEnd);
}

void Keep(P& parser, A) {
  parser.SetDestination(parser.State().Destination);
}

template <int RtfPicture::*Number>
void Measure(P& parser, A argument) {
  constexpr int kMost = 1'000'000;
  parser.Picture().*Number =
      argument.Number > kMost ? kMost : (argument.Number < -kMost ? -kMost : argument.Number);
}

template <RtfPictureKind Kind>
void Picture(P& parser, A) {
  parser.Picture().Kind = Kind;
}

void BeginList(P& parser, A) {
  parser.SetDestination(D::Other, E::List);
  parser.List() = {};
  parser.ListId() = 0;
}

void BeginListLevel(P& parser, A) {
  if (parser.List().Levels.size() >= kListLevels) {
    parser.SetDestination(D::Skip);
    return;
  }
  parser.SetDestination(D::Other, E::ListLevel);
  parser.State().Chars.Font = -1;
  parser.List().Levels.emplace_back();
}

void BeginListOverride(P& parser, A) {
  parser.SetDestination(D::Other, E::ListOverride);
  parser.BeginListOverride();
}

template <int RtfListLevel::*Number>
void SetLevel(P& parser, A argument) {
  if (!parser.List().Levels.empty()) parser.List().Levels.back().*Number = argument.Number;
}

void SetLevelStart(P& parser, A argument) {
  if (parser.State().AtEnd == RtfGroupEnd::LevelOverride) {
    parser.SetOverrideStart(argument.Number);
  } else {
    SetLevel<&RtfListLevel::StartAt>(parser, argument);
  }
}

template <int Kind>
void SetOldNumbers(P& parser, A) {
  parser.OldList().NumberKind = Kind;
}

void BeginOldList(P& parser, A) {
  if (!parser.IsIn(D::Body)) {
    parser.SetDestination(D::Skip);
    return;
  }
  parser.SetDestination(D::Other, E::OldList);
  parser.OldList() = {};
}

void BeginFormField(P& parser, A) {
  parser.SetDestination(parser.IsIn(D::FieldInstruction) ? D::Other : D::Skip);
}

void BeginListText(P& parser, A) {
  parser.SetDestination(parser.State().Destination);
  if (parser.IsIn(D::Body)) parser.SetHasListText();
}

void BeginPlace(P& parser, A) {
  parser.SetDestination(D::PlaceName, E::PlaceName);
  parser.ClearName();
}

void BeginBox(P& parser, A) {
  parser.Shape().IsShown = true;
  if (parser.IsDeep()) {
    parser.SetDestination(D::Body);
    return;
  }
  parser.SetDestination(D::Body, E::Aside);
  parser.SetPlain();
  parser.State().Para = {};
  parser.Flow().BeginAside(RtfFlow::Aside::Box);
}

void BeginShape(P& parser, A) {
  parser.SetDestination(D::Other);
  parser.Shape() = {};
}

// What stands in for a shape is for readers that can't show the shape, which here are those that draw none.
void BeginShapeResult(P& parser, A argument) {
  if (parser.Shape().IsShown || parser.State().IsBackground) {
    parser.SetDestination(D::Skip);
  } else {
    BeginBox(parser, argument);
  }
}

void BeginBackground(P& parser, A) {
  parser.SetDestination(D::Other);
  parser.State().IsBackground = true;
}

void BeginNestedRow(P& parser, A) {
  if (parser.IsDeep()) return;
  parser.SetDestination(parser.State().Destination, E::NestedRow);
  parser.Flow().BeginNestedRow();
}

void BeginShapeProperty(P& parser, A) {
  parser.SetDestination(D::Other, E::ShapeProperty);
}

constexpr RtfWord kWords[] = {
    {"fonttbl", Begin<D::FontTable, E::Font>},
    {"colortbl", Begin<D::ColourTable>},
    {"stylesheet", Begin<D::StyleSheet>},
    {"listtable", Begin<D::Other>},
    {"list", BeginList},
    {"listlevel", BeginListLevel},
    {"leveltext", Begin<D::ListLevelText>},
    {"levelnumbers", Begin<D::Skip>},
    {"levelnfc", SetLevel<&RtfListLevel::NumberKind>},
    {"levelnfcn", SetLevel<&RtfListLevel::NumberKind>},
    {"levelstartat", SetLevelStart},
    {"leveljc", SetLevel<&RtfListLevel::Justify>},
    {"leveljcn", SetLevel<&RtfListLevel::Justify>},
    {"levelfollow", SetLevel<&RtfListLevel::Follow>},
    {"levellegal",
     [](P& p, A a) {
       if (!p.List().Levels.empty()) p.List().Levels.back().IsLegal = a.IsOn();
     }},
    {"listname", Begin<D::Skip>},
    {"listid", [](P& p, A a) { p.ListId() = a.Number; }},
    {"listoverridetable", Begin<D::Other>},
    {"listoverride", BeginListOverride},
    {"lfolevel", [](P& p, A) { p.BeginLevelOverride(); }},
    {"listoverridestartat", [](P& p, A) { p.HasOverrideStart() = true; }},
    {"listtext", BeginListText},
    {"pntext", BeginListText},
    {"field", [](P& p, A) { p.BeginField(); }},
    {"fldinst", Begin<D::FieldInstruction>},
    {"fldrslt", [](P& p, A) { p.BeginFieldResult(); }},
    {"bkmkstart", BeginPlace},
    // A formula that is told as text of its own kind has a picture that stands in for it.
    {"mmathPict", Keep},
    {"pict", [](P& p, A) { p.BeginPicture(); }},
    {"shppict", [](P& p, A) { p.BeginShapePicture(); }},
    {"nonshppict", [](P& p, A) { p.BeginPlainPicture(); }},
    {"object", [](P& p, A) { p.BeginObject(); }},
    {"objname", Begin<D::ObjectName>},
    {"objw", [](P& p, A a) { p.SetObjectSize(a.Number, 0); }},
    {"objh", [](P& p, A a) { p.SetObjectSize(0, a.Number); }},
    {"result", [](P& p, A) { p.BeginObjectResult(); }},
    {"shp", BeginShape},
    {"shpgrp", BeginShape},
    {"shpinst", Begin<D::Other>},
    {"shpleft", [](P& p, A a) { p.Shape().Left = a.Number; }},
    {"shptop", [](P& p, A a) { p.Shape().Top = a.Number; }},
    {"shpright", [](P& p, A a) { p.Shape().Right = a.Number; }},
    {"shpbottom", [](P& p, A a) { p.Shape().Bottom = a.Number; }},
    {"shprslt", BeginShapeResult},
    {"do", Begin<D::Other>},
    {"shptxt", BeginBox},
    {"dptxbxtext", BeginBox},
    {"background", BeginBackground},
    {"sp", BeginShapeProperty},
    {"sn", Begin<D::ShapeName>},
    {"sv", Begin<D::ShapeValue>},
    {"footnote", [](P& p, A) { p.BeginFootnote(); }},
    {"pngblip", Picture<RtfPictureKind::Png>},
    {"jpegblip", Picture<RtfPictureKind::Jpeg>},
    {"dibitmap", Picture<RtfPictureKind::Dib>},
    {"wbitmap", Picture<RtfPictureKind::DeviceBitmap>},
    {"wmetafile", Picture<RtfPictureKind::Metafile>},
    {"pmmetafile", Picture<RtfPictureKind::Metafile>},
    {"emfblip", Picture<RtfPictureKind::Metafile>},
    {"macpict", Picture<RtfPictureKind::Metafile>},
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
    {"nesttableprops", BeginNestedRow},
    {"nonesttables", Begin<D::Skip>},
    {"header", Begin<D::Skip>},
    {"headerl", Begin<D::Skip>},
    {"headerr", Begin<D::Skip>},
    {"headerf", Begin<D::Skip>},
    {"footer", Begin<D::Skip>},
    {"footerl", Begin<D::Skip>},
    {"footerr", Begin<D::Skip>},
    {"footerf", Begin<D::Skip>},
    {"info", Begin<D::Skip>},
    {"xe", Begin<D::Skip>},
    {"tc", Begin<D::Skip>},
    {"tcn", Begin<D::Skip>},
    {"rxe", Begin<D::Skip>},
    {"annotation", Begin<D::Skip>},
    {"atnid", Begin<D::Skip>},
    {"atnauthor", Begin<D::Skip>},
    {"pn", BeginOldList},
    {"pnlvlblt", SetOldNumbers<23>},
    {"pndec", SetOldNumbers<0>},
    {"pnucrm", SetOldNumbers<1>},
    {"pnlcrm", SetOldNumbers<2>},
    {"pnucltr", SetOldNumbers<3>},
    {"pnlcltr", SetOldNumbers<4>},
    {"pnord", SetOldNumbers<5>},
    {"pnstart", [](P& p, A a) { p.OldList().StartAt = a.Number; }},
    {"pnf", [](P& p, A a) { p.State().CodePage = p.Header().CodePageOf(a.Number); }},
    {"pntxtb", Begin<D::OldListBefore>},
    {"pntxta", Begin<D::OldListAfter>},
    {"pnseclvl", Begin<D::Skip>},
    {"objdata", Begin<D::Skip>},
    {"objclass", Begin<D::Skip>},
    {"objalias", Begin<D::Skip>},
    {"objsect", Begin<D::Skip>},
    {"datafield", Begin<D::Skip>},
    {"formfield", BeginFormField},
    {"ffres", [](P& p, A a) { p.SetFieldState(a.Number); }},
    {"ffdefres", [](P& p, A a) { p.SetFieldUsualState(a.Number); }},
    {"ffl", [](P& p, A) { p.BeginFieldChoice(); }},
    {"bkmkend", Begin<D::Skip>},
    {"filetbl", Begin<D::Skip>},
    {"revtbl", Begin<D::Skip>},
    {"upr", [](P& p, A) { p.BeginTwice(); }},
    {"falt", Begin<D::OtherFontName>},
    {"fontemb", Begin<D::Skip>},
    {"fontfile", Begin<D::Skip>},
    {"ftnsep", Begin<D::Skip>},
    {"ftnsepc", Begin<D::Skip>},
    {"ftncn", Begin<D::Skip>},
    {"aftnsep", Begin<D::Skip>},
    {"aftnsepc", Begin<D::Skip>},
    {"aftncn", Begin<D::Skip>},
    // These always stand behind \*, which a page that went through other programs may have lost.
    {"blipuid", Begin<D::Skip>},
    {"colorschememapping", Begin<D::Skip>},
    {"datastore", Begin<D::Skip>},
    {"defchp", Begin<D::Skip>},
    {"defpap", Begin<D::Skip>},
    {"docvar", Begin<D::Skip>},
    {"generator", Begin<D::Skip>},
    {"latentstyles", Begin<D::Skip>},
    {"mmathPr", Begin<D::Skip>},
    {"panose", Begin<D::Skip>},
    {"pgptbl", Begin<D::Skip>},
    {"rsidtbl", Begin<D::Skip>},
    {"themedata", Begin<D::Skip>},
    {"userprops", Begin<D::Skip>},
    {"wgrffmtfilter", Begin<D::Skip>},
    {"xmlnstbl", Begin<D::Skip>},
};

}  // namespace

std::span<const RtfWord> RtfDestinationWords() {
  return kWords;
}
