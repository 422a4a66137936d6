#include "reference/PrintableGlossary.h"

#include "pages/view/PrintDocument.h"

namespace {

const PieceLook kLetterLook{.Bold = true, .Points = 12, .Colour = 0xC000C0};
const PieceLook kTermLook{.Bold = true, .Points = {}, .Colour = {}};

// The end of a paragraph and an empty one. The order of the signs is that of the document's format.
constexpr QLatin1StringView kGap("\n\r\n\r");

}  // namespace

void PrintableGlossary::WriteGlosLetter(const QString& letter) {
  document_.Append(letter, kLetterLook);
  document_.Append(kGap);
}

// A term and its definition run on in one paragraph.
void PrintableGlossary::WriteGlosTerm(const QString& term) {
  document_.Append(term + u'.', kTermLook);
  document_.Append(QStringLiteral("  "));
}

void PrintableGlossary::WriteGlosDefinition(const QString& definition) {
  document_.Append(definition + kGap);
}
