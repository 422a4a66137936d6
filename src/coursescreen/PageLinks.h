// The links of the page on the course screen: what a target means, and where it leads.
#pragma once

#include <QString>

class Form;
struct LinkTarget;
class PageTurning;
class TextControl;

class PageLinks {
 public:
  // Follows the links of `page` from now on. All three outlive this object.
  PageLinks(Form& screen, TextControl& page, PageTurning& pages);

  // A link was clicked: 1 is the kind of a link to a file, an address or a page, 2 that of a place on the
  // page; another kind does nothing. The target loses its trailing blanks and its capitals. A page that
  // can't be loaded is a RunTimeError.
  void TextControlLinkClicked(int identifier, int kind, QString& target);

  // Hands an address to the browser and gets the screen out of its way. With the link text of the course
  // survey the whole course must be installed; a message says so when it isn't.
  void OpenWebLink(const QString& linkText, const QString& surveyText, const QString& target);

 private:
  void OpenCourseDocument(const QString& target);
  void ShowPlaceInFile(const LinkTarget& target);
  void JumpToPage(const QString& linkText, const LinkTarget& target);

  Form& screen_;
  TextControl& page_;
  PageTurning& pages_;
};
