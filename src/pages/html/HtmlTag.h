// One tag of an HTML page, taken apart and written anew in the one way that every reader understands alike.
// Used by the filter.
#pragma once

#include <QList>
#include <QString>
#include <QStringView>
#include <utility>

struct HtmlTag {
  QString Name;  // lower case
  bool IsEnd = false;
  bool IsClosed = false;  // written as a beginning and an end in one
  // Lower-case names with their values as they stand, entities among them. Only the first of a name counts.
  QList<std::pair<QString, QString>> Attributes;

  // Whether nothing can stand between its beginning and its end.
  bool IsVoid() const;

  // The largest whole number from 1 to `most` of an attribute. Anything else it holds becomes 1.
  int HoldNumber(const QString& attribute, int most);

  bool Has(const QString& attribute) const;
  // Gives the attribute that value, entities resolved; takes it away for an empty one.
  void Set(const QString& attribute, const QString& value);

  // The value of an attribute with its entities resolved; empty when the tag does not have it.
  QString Value(const QString& attribute) const;

  // Attributes that a page has a use for, with colours and styles as HtmlStyle.h gives them; everything
  // quoted.
  QString Text() const;
};

// `text` begins at the "<" of a tag and ends behind its ">".
HtmlTag ParseHtmlTag(QStringView text);
