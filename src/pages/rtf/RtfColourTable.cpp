#include "pages/rtf/RtfColourTable.h"

#include <algorithm>

#include "pages/rtf/RtfParser.h"

namespace {
constexpr size_t kMostColours = 4096;
}

QColor RtfColourTable::Of(int number) const {
  const auto index = static_cast<size_t>(number);
  return number >= 0 && index < colours_.size() ? colours_[index] : QColor();
}

QColor RtfColourTable::Of(const RtfShade& shade) const {
  const QColor back = shade.Back > 0 ? Of(shade.Back) : QColor();
  if (shade.Share <= 0) return back;
  const QColor ground = back.isValid() ? back : QColor(Qt::white);
  const QColor told = shade.Fore > 0 ? Of(shade.Fore) : QColor();
  const QColor ink = told.isValid() ? told : QColor(Qt::black);
  const double share = std::min(shade.Share, RtfShade::kWhole) / double{RtfShade::kWhole};
  const auto mixed = [share](int under, int over) { return qRound(under + (over - under) * share); };
  return {mixed(ground.red(), ink.red()), mixed(ground.green(), ink.green()),
          mixed(ground.blue(), ink.blue())};
}

void RtfColourTable::AddText(const QString& text) {
  for (const QChar c : text) {
    if (c != u';') continue;
    const auto part = [](int value) { return std::clamp(value, 0, 255); };
    const QColor colour(part(parts_.Red), part(parts_.Green), part(parts_.Blue));
    if (colours_.size() < kMostColours) colours_.push_back(parts_.IsGiven ? colour : QColor());
    parts_ = {};
  }
}

template <int RtfColourTable::Parts::*Part>
void RtfColourTable::SetPart(RtfParser& parser, RtfArgument argument) {
  Parts& parts = parser.Header().Colours.parts_;
  parts.*Part = argument.Number;
  parts.IsGiven = true;
}

std::span<const RtfWord> RtfColourTable::Words() {
  static constexpr RtfWord kWords[] = {
      {"colortbl", [](RtfParser& p, RtfArgument) { p.SetDestination(RtfDestination::ColourTable); }},
      {"red", SetPart<&Parts::Red>},
      {"green", SetPart<&Parts::Green>},
      {"blue", SetPart<&Parts::Blue>},
  };
  return kWords;
}
