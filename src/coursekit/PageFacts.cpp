#include "coursekit/PageFacts.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QUrl>

#include "pages/PageReader.h"
#include "pages/common/PageLink.h"
#include "pages/common/PicturePixels.h"
#include "platform/RunTimeError.h"

namespace {

QList<PageFacts::Link> LinksOf(const QTextDocument& document) {
  QList<PageFacts::Link> links;
  int number = 0;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextCharFormat format = it.fragment().charFormat();
      const PageLink link = LinkOfHref(format.anchorHref());
      const int its = format.intProperty(kLinkNumberProperty);
      if (link.Kind == 0 || its != number) number = 0;
      if (link.Kind == 0) continue;
      if (its != number || links.isEmpty()) links.append({{}, link.Kind, link.Target});
      links.last().Text += it.fragment().text();
      number = its;
    }
  }
  return links;
}

}  // namespace

PageFacts ReadPageFacts(const QByteArray& bytes, const QString& what, const PictureBytes& pictures) {
  PageFacts facts;
  PixelBudget budget;
  try {
    const RichPage page = ReadPage(bytes, kLeadInSize, PageMetrics(), what, [&](const QString& name) {
      QByteArray picture;
      // Word processors write the name as an address has it, "my%20till.png".
      for (const QString& file : {name, QUrl::fromPercentEncoding(name.toUtf8())}) {
        if (picture.isEmpty()) IgnoreErrors([&] { picture = pictures(file); });
      }
      if (DecodePicture(picture, {}, budget).isNull()) facts.MissingPictures.append(name);
      return picture;
    });
    for (auto place = page.Places.keyBegin(); place != page.Places.keyEnd(); ++place)
      facts.Places.insert(*place);
    for (const PageObject& object : page.Objects)
      facts.Movies.append(object.DataText);
    facts.Links = LinksOf(*page.Document);
  } catch (const RunTimeError& error) {
    facts.Error = error.Description();
  }
  return facts;
}
