// A page keeps its file's name for good, so that no learner is moved.
#include <gtest/gtest.h>

#include "Sources.h"
#include "coursekit/build/PageNames.h"

namespace {

// "stem=topic", in the order of the pages: their names afterwards.
class Versions {
 public:
  QString Next(const QString& pages) {
    QList<NamedSource> sources;
    for (const QString& page : pages.split(' '))
      sources.append({page.section('=', 0, 0), page.section('=', 2), page.section('=', 1, 1), {}});
    sources_.said = {};
    PageNames names;
    names.Read(text_, sources_.said);
    const QStringList assigned = names.Assign("m", sources, sources_.said);
    text_ = names.Text();
    return QString(assigned.join(' ')).remove(".txm").remove("000");
  }
  QStringList Said() const { return sources_.Said(); }

 private:
  QString text_;
  Sources sources_;
};

}  // namespace

TEST(PageNames, APageKeepsItsNameWhateverHappensAroundIt) {
  Versions versions;
  const struct {
    const char* What;
    const char* Pages;
    const char* Names;
    QStringList Said;
  } rows[] = {
      {"the first build", "a=A b c", "1 2 3", {}},
      {"the same again", "a=A b c", "1 2 3", {}},
      {"one put in, two changed places", "a=A n c b", "1 4 3 2", {}},
      {"one renamed, known by its topic", "z=A n c b", "1 4 3 2", {}},
      {"one renamed, known by its content", "z=A n==hash c b", "1 4 3 2", {}},
      {"the same renamed", "z=A m==hash c b", "1 4 3 2", {}},
      {"one taken out", "z=A m==hash b", "1 4 2", {"names-gone page-names.txt m/3.txm, c"}},
      {"and another in its place", "z=A m==hash d b", "1 4 5 2", {}},
      {"it comes back", "z=A m==hash c d b", "1 4 3 5 2", {}},
      {"another first page",
       "b=B z=A m==hash c d",
       "1 6 4 3 5",
       {"names-first page-names.txt m, z, b", "names-gone page-names.txt m/2.txm, b"}},
      {"and its topic is gone", "b z=A m==hash c d", "1 6 4 3 5", {"names-topic-gone page-names.txt m, B"}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(versions.Next(row.Pages), row.Names) << row.What;
    EXPECT_EQ(versions.Said().replaceInStrings("000", ""), row.Said) << row.What;
  }
}
