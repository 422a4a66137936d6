#include "platform/forms/Palette.h"

#include <QRegularExpression>
#include <utility>

#include "platform/forms/Screen.h"

namespace {

QString WithWindowPixels(const QString& sheet) {
  static const QRegularExpression length(QStringLiteral("(\\d+)px"));
  QString converted;
  qsizetype end = 0;
  for (const QRegularExpressionMatch& match : length.globalMatch(sheet)) {
    converted += sheet.mid(end, match.capturedStart() - end) +
                 QString::number(Screen::Pixels(match.captured(1).toInt())) + QLatin1String("px");
    end = match.capturedEnd();
  }
  return converted + sheet.mid(end);
}

}  // namespace

QString Palette::Sheet(QString sheet) {
  constexpr std::pair<const char*, int> kColours[] = {
      {"@blue", kBlue}, {"@edge", kEdge}, {"@light", kLight}, {"@grey", kGrey}, {"@text", kText}};
  for (const auto& [word, colour] : kColours)
    sheet.replace(QLatin1String(word), Screen::Colour(colour).name());
  return Screen::Shrink() == 1 ? sheet : WithWindowPixels(sheet);
}
