#include "coursekit/PageFacts.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QUrl>

#include "pages/PageReader.h"
#include "platform/RunTimeError.h"

namespace {

void ReadRichPage(PageFacts& facts, const QByteArray& bytes, const QString& what) {
  const RichPage page = ReadPage(bytes, kLeadInSize, PageMetrics(), what);
  for (auto place = page.Places.keyBegin(); place != page.Places.keyEnd(); ++place)
    facts.Places.insert(*place);
  for (const PageObject& object : page.Objects)
    facts.Movies.append(object.DataText);
  int number = 0;
  for (QTextBlock block = page.Document->begin(); block.isValid(); block = block.next()) {
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextCharFormat format = it.fragment().charFormat();
      const int its = format.intProperty(kLinkNumberProperty);
      const PageLink link = its == number ? PageLink() : LinkOfHref(format.anchorHref());
      if (link.Kind != 0) facts.Links.append(link);
      number = its;
    }
  }
}

void ReadHtmlPage(PageFacts& facts, const QByteArray& html, const QString& what,
                  const PictureBytes& pictures) {
  const HtmlReferences found = ReadHtmlReferences(html, what, [&](const QString& name) {
    QByteArray picture;
    // Word processors write the name as an address has it, "my%20till.png".
    for (const QString& file : {name, QUrl::fromPercentEncoding(name.toUtf8())}) {
      if (picture.isEmpty() && IgnoreErrors([&] { picture = pictures(file); })) facts.Pictures.append(file);
    }
    return picture;
  });
  facts.Places = found.Places;
  facts.Links = found.Links;
  facts.Movies = found.Movies;
  facts.MissingPictures = found.MissingPictures;
}

}  // namespace

PageFacts ReadPageFacts(const QByteArray& bytes, const QString& what, const PictureBytes& pictures) {
  PageFacts facts;
  const QByteArray page = bytes.mid(kLeadInSize);
  try {
    // Most pages are HTML, and what is asked of them needs no document.
    IsHtml(page) ? ReadHtmlPage(facts, page, what, pictures) : ReadRichPage(facts, bytes, what);
  } catch (const RunTimeError& error) {
    facts.Error = error.Description();
  }
  return facts;
}
