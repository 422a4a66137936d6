#include "pages/rtf/RtfFields.h"

#include "pages/rtf/RtfParser.h"

namespace {

using P = RtfParser;
using A = RtfArgument;
using D = RtfDestination;

constexpr size_t kMostFields = 200'000;
constexpr qsizetype kMostChoices = 25;  // of a form field, as many as its program takes
constexpr char16_t kEmptyBox = 0x2610, kTickedBox = 0x2612;

void Skip(P& parser, A) {
  parser.SetDestination(D::Skip);
}

}  // namespace

RtfFields::Field* RtfFields::Find(int field) {
  return field < 0 ? nullptr : &fields_[static_cast<size_t>(field)];
}

void RtfFields::AddInstruction(int field, const QString& text) {
  if (Field* const found = Find(field)) AppendName(found->Instruction, text);
}

void RtfFields::AddChoice(int field, const QString& text) {
  Field* const found = Find(field);
  // A field in the choice has none of its own.
  if (found != nullptr && !found->Choices.isEmpty()) AppendName(found->Choices.last(), text);
}

void RtfFields::AddShown(int field) {
  if (Field* const found = Find(field)) found->HasShown = true;
}

void RtfFields::AddPlaceName(const QString& text) {
  AppendName(placeName_, text);
}

void RtfFields::EndPlace(P& parser) {
  parser.Flow().AddPlace(placeName_.trimmed());
}

void RtfFields::Begin(P& parser, A) {
  std::vector<Field>& fields = parser.Fields().fields_;
  if (fields.size() >= kMostFields) return;
  parser.SetDestination(parser.State().Destination, RtfGroupEnd::Field);
  parser.State().Field = static_cast<int>(fields.size());
  fields.emplace_back();
}

void RtfFields::BeginResult(P& parser, A) {
  Field* const field = parser.Fields().Find(parser.State().Field);
  // The instruction's own groups never hold a result that is shown.
  if (field == nullptr || parser.IsIn(D::FieldInstruction)) return;
  field->HasResult = true;
  // A list shows its choice, whatever was shown when the page was written.
  if (field->HasChoice()) {
    parser.SetDestination(D::Skip);
    return;
  }
  // Of several results all have the link of the first: a long instruction is not read for each of them.
  if (!field->Read && !field->Instruction.isEmpty()) {
    field->Read = ReadInstruction(field->Instruction);
    if (field->Read->Link.Kind != 0) field->Link = parser.Formats().AddLink(field->Read->Link);
  }
  if (field->Link != 0) parser.State().Chars.Link = field->Link;
}

void RtfFields::End(P& parser, int number) {
  if (number < 0) return;
  Field& field = *Find(number);
  if (parser.IsIn(D::Body)) {
    if (!field.Read) field.Read = ReadInstruction(field.Instruction);
    if (!field.HasResult) parser.AddText(field.Read->Symbol);
    if (!field.HasShown && field.Read->IsCheckBox)
      parser.AddText(QString(QChar(field.IsTicked() ? kTickedBox : kEmptyBox)));
    if (field.HasChoice()) parser.AddText(field.Choices[field.Choice()]);
  }
  field.Instruction.clear();
  field.Choices.clear();
  field.Read.reset();
}

void RtfFields::BeginForm(P& parser, A) {
  parser.SetDestination(parser.IsIn(D::FieldInstruction) ? D::Other : D::Skip);
}

void RtfFields::BeginChoice(P& parser, A) {
  Field* const field = parser.Fields().Find(parser.State().Field);
  if (field == nullptr || field->Choices.size() >= kMostChoices) {
    parser.SetDestination(D::Skip);
  } else {
    parser.SetDestination(D::FormChoice);
    field->Choices.append(QString());
  }
}

template <int RtfFields::Field::*Number>
void RtfFields::SetState(P& parser, A argument) {
  if (Field* const field = parser.Fields().Find(parser.State().Field)) field->*Number = argument.Number;
}

void RtfFields::BeginPlace(P& parser, A) {
  parser.SetDestination(D::PlaceName, RtfGroupEnd::PlaceName);
  parser.Fields().placeName_.clear();
}

std::span<const RtfWord> RtfFields::Words() {
  static constexpr RtfWord kWords[] = {
      {"field", Begin},
      {"fldinst", [](P& p, A) { p.SetDestination(D::FieldInstruction); }},
      {"fldrslt", BeginResult},
      {"datafield", Skip},
      {"formfield", BeginForm},
      {"ffres", SetState<&Field::State>},
      {"ffdefres", SetState<&Field::UsualState>},
      {"ffl", BeginChoice},
      {"bkmkstart", BeginPlace},
      {"bkmkend", Skip},
  };
  return kWords;
}
