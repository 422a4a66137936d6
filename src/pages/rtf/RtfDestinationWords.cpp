// Control words that open a group with a meaning of its own and belong to none of the tables.
#include "pages/rtf/RtfParser.h"
#include "pages/rtf/RtfWords.h"

namespace {

using P = RtfParser;
using A = RtfArgument;
using D = RtfDestination;
using E = RtfGroupEnd;

void Skip(P& parser, A) {
  parser.SetDestination(D::Skip);
}

void Keep(P& parser, A) {
  parser.SetDestination(parser.State().Destination);
}

void BeginNestedRow(P& parser, A) {
  if (parser.IsDeep()) return;
  parser.SetDestination(parser.State().Destination, E::NestedRow);
  parser.Flow().BeginNestedRow();
}

void BeginFootnote(P& parser, A) {
  if (parser.IsDeep()) return;
  parser.SetDestination(D::Body, E::Aside);
  parser.State().IsFootnote = true;
  parser.Flow().BeginAside(RtfFlow::Aside::Footnote);
}

void BeginTwice(P& parser, A) {
  const D outer = parser.State().Destination;
  parser.SetDestination(D::Twice);
  parser.State().Outer = outer;
}

constexpr RtfWord kWords[] = {
    // A formula that is told as text of its own kind has a picture that stands in for it.
    {"mmathPict", Keep},
    {"footnote", BeginFootnote},
    {"nesttableprops", BeginNestedRow},
    {"nonesttables", Skip},
    {"header", Skip},
    {"headerl", Skip},
    {"headerr", Skip},
    {"headerf", Skip},
    {"footer", Skip},
    {"footerl", Skip},
    {"footerr", Skip},
    {"footerf", Skip},
    {"info", Skip},
    {"xe", Skip},
    {"tc", Skip},
    {"tcn", Skip},
    {"rxe", Skip},
    {"annotation", Skip},
    {"atnid", Skip},
    {"atnauthor", Skip},
    {"filetbl", Skip},
    {"revtbl", Skip},
    {"upr", BeginTwice},
    {"ftnsep", Skip},
    {"ftnsepc", Skip},
    {"ftncn", Skip},
    {"aftnsep", Skip},
    {"aftnsepc", Skip},
    {"aftncn", Skip},
    // These always stand behind \*, which a page that went through other programs may have lost.
    {"colorschememapping", Skip},
    {"datastore", Skip},
    {"defchp", Skip},
    {"defpap", Skip},
    {"docvar", Skip},
    {"generator", Skip},
    {"latentstyles", Skip},
    {"mmathPr", Skip},
    {"panose", Skip},
    {"pgptbl", Skip},
    {"rsidtbl", Skip},
    {"themedata", Skip},
    {"userprops", Skip},
    {"wgrffmtfilter", Skip},
    {"xmlnstbl", Skip},
};

}  // namespace

std::span<const RtfWord> RtfDestinationWords() {
  return kWords;
}
