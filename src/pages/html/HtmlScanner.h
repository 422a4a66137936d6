// Takes a page of HTML apart into its text and its tags, however it is written. HtmlFilter decides about
// them.
#pragma once

#include <QString>
#include <QStringView>
#include <optional>
#include <vector>

#include "pages/html/HtmlTag.h"

// What a "<" begins: a tag, or text, as HTML. A comment or a declaration is neither.
struct HtmlMarkup {
  QString Text;
  std::optional<HtmlTag> Tag;
};

// The page has to outlive it. At the end all that is taken is empty.
class HtmlScanner {
 public:
  explicit HtmlScanner(const QString& html) : html_(html) {}

  bool AtEnd() const { return at_ >= html_.size(); }

  // The text up to the next "<", as it is written.
  QStringView TakeText();
  // From that "<" on.
  HtmlMarkup TakeMarkup();

  // What stands before the next end tag of that name, which is passed too. Nothing is taken where there is
  // none.
  std::optional<QString> TakeToEndOf(const QString& name);
  QString TakeRest();
  // Passes all up to the end tag of the object that is open; false where it has none.
  bool SkipObject();

 private:
  bool Follows(const char* text) const;
  void PassDeclaration(qsizetype name);
  HtmlTag TakeTag(qsizetype name);
  void DropPrefix(HtmlTag& tag);
  qsizetype TagEnd(qsizetype from);
  qsizetype NextQuote(QChar quote, qsizetype from);

  static constexpr qsizetype kNone = -2;

  const QString& html_;
  qsizetype at_ = 0;
  qsizetype nextDouble_ = -1, nextSingle_ = -1;  // where the next quotes stand, if looked up; kNone: no more
  std::vector<qsizetype> strayQuotes_;           // of the tag at hand
  QString prefix_;                               // of the page's tags, with its colon
};
