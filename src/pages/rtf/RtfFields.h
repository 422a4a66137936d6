// The fields of an RTF page, form fields among them, and the bookmarks that its links lead to.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <span>
#include <vector>

#include "pages/rtf/RtfField.h"
#include "pages/rtf/RtfWords.h"

class RtfFields {
 public:
  static std::span<const RtfWord> Words();

  // Text of the groups of a field; nothing for a number below 0.
  void AddInstruction(int field, const QString& text);
  void AddChoice(int field, const QString& text);
  void AddShown(int field);  // text of its result
  void End(RtfParser& parser, int field);

  // A bookmark's name, and its end.
  void AddPlaceName(const QString& text);
  void EndPlace(RtfParser& parser);

 private:
  struct Field {
    QString Instruction;
    std::optional<RtfInstruction> Read;  // the same, once it was read
    int Link = 0;
    int State = -1;       // of a form field: 0 or 1 of a box, the place of a choice from 0
    int UsualState = 0;   // what holds where the state is none of these
    QStringList Choices;  // of a form field's list
    bool HasResult = false;
    bool HasShown = false;  // its result is not empty

    bool IsTicked() const { return (State == 0 || State == 1 ? State : UsualState) != 0; }
    int Choice() const { return State >= 0 && State < Choices.size() ? State : UsualState; }
    bool HasChoice() const { return Choice() >= 0 && Choice() < Choices.size(); }
  };

  static void Begin(RtfParser& parser, RtfArgument argument);
  static void BeginResult(RtfParser& parser, RtfArgument argument);
  static void BeginForm(RtfParser& parser, RtfArgument argument);
  static void BeginChoice(RtfParser& parser, RtfArgument argument);
  static void BeginPlace(RtfParser& parser, RtfArgument argument);
  template <int Field::*Number>
  static void SetState(RtfParser& parser, RtfArgument argument);

  Field* Find(int field);  // null below 0

  std::vector<Field> fields_;
  QString placeName_;
};
