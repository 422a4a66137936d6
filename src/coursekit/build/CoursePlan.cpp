#include "coursekit/build/CoursePlan.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <array>

#include "coursekit/build/PageNames.h"
#include "coursekit/sources/WordDocument.h"
#include "pages/html/HtmlReader.h"
#include "pages/rtf/RtfReader.h"
#include "platform/files/FileBytes.h"

namespace {

constexpr qint64 kCourseFileLimit = 1024 * 1024;  // bytes
constexpr QChar kTopicsPart = u'_';               // parts the viewed topics of a learner's record

constexpr std::array kPageEndings{u".md", u".html", u".htm", u".rtf", u".docx", u".odt"};
constexpr QStringView kTestEnding = u".gift";

bool Ends(const QString& name, QStringView ending) {
  return name.endsWith(ending, Qt::CaseInsensitive);
}

bool IsPage(const QString& name) {
  return std::any_of(kPageEndings.begin(), kPageEndings.end(),
                     [&name](const char16_t* ending) { return Ends(name, QStringView(ending)); });
}

QString StemOf(const QString& name) {
  return name.left(name.lastIndexOf(u'.'));
}

// Rich text is taken as it is, but for one whose links name files of the author's machine.
bool HasFileLinks(const QByteArray& richText) {
  return richText.contains("HYPERLINK \"file://");
}

// "rt0101/03-till-check.gift" speaks of "Till check".
QString WordsOfName(const QString& name) {
  static const QRegularExpression number(QStringLiteral("^[0-9]+[-_ .]*"));
  QString words = QFileInfo(name).completeBaseName().remove(number);
  words.replace(u'-', u' ').replace(u'_', u' ');
  if (!words.isEmpty()) words[0] = words.at(0).toUpper();
  return words;
}

class Planner {
 public:
  Planner(const SourceFolder& folder, Findings& findings) : folder_(folder), findings_(findings) {}

  std::optional<CoursePlan> Plan() {
    const int before = findings_.Errors();
    const QString courseFile = QString::fromLatin1(kCourseFile);
    const std::optional<QString> text = folder_.Text(courseFile, kCourseFileLimit, findings_);
    if (!text) return std::nullopt;
    std::optional<CourseSource> course = ReadCourseFile(*text, courseFile, findings_);
    if (!course) return std::nullopt;
    plan_.Course = *course;
    ReadNames();
    for (const ModuleSource& module : plan_.Course.Modules)
      PlanModule(module);
    if (findings_.Errors() > before) return std::nullopt;
    plan_.PageNames = names_.Text();
    return std::move(plan_);
  }

 private:
  void ReadNames() {
    const QString file = QString::fromLatin1(kPageNamesFile);
    if (folder_.Find(file).isEmpty()) return;
    const std::optional<QString> text = folder_.Text(file, kTextFileLimit, findings_);
    if (text) names_.Read(*text, findings_);
  }

  void PlanModule(const ModuleSource& source) {
    PlannedModule module{source, {}};
    if (!folder_.HasFolder(source.Id)) {
      findings_.Error("module-no-folder", source.Place, source.Id);
      return;
    }
    ListPages(module);
    if (module.Pages.isEmpty()) {
      findings_.Error("module-no-pages", source.Place, source.Id);
      return;
    }
    QList<NamedSource> named;
    for (PlannedPage& page : module.Pages)
      named.append(ReadPage(page));
    CheckTopics(module);
    CheckPractice(module);
    CheckScored(module);
    const QStringList names = names_.Assign(source.Id, named, findings_);
    for (qsizetype i = 0; i < names.size(); ++i) {
      PlannedPage& page = module.Pages[i];
      page.Name = names.at(i);
      for (const QString& file : {page.Source, page.TestSource}) {
        if (!file.isEmpty()) plan_.Addresses.insert(file, {source.Id, page.Name, named.at(i).Heading});
      }
    }
    plan_.Modules.append(module);
  }

  // A page and a test of the same name are one page: the test begins on it.
  void ListPages(PlannedModule& module) {
    const ModuleSource& source = module.Source;
    QStringList files = folder_.Files(source.Id);
    files.removeIf([](const QString& name) { return !IsPage(name) && !Ends(name, kTestEnding); });
    const QStringList found = files;
    if (!source.Pages.isEmpty()) files = ListedFiles(source, found);
    QHash<QString, qsizetype> places;  // of the pages by their stem
    for (const QString& file : files) {
      const QString stem = StemOf(file);
      const bool isTest = Ends(file, kTestEnding);
      const auto known = places.constFind(stem);
      if (known == places.cend()) {
        places.insert(stem, module.Pages.size());
        module.Pages.append(PlannedPage());
      }
      PlannedPage& page = known == places.cend() ? module.Pages.last() : module.Pages[*known];
      QString& its = isTest ? page.TestSource : page.Source;
      if (!its.isEmpty()) findings_.Error("page-two-sources", {file}, its);
      its = file;
    }
    // A listed page brings its test along, and a listed test its page.
    for (const QString& file : found) {
      const auto known = places.constFind(StemOf(file));
      if (known == places.cend()) {
        findings_.Warn("page-not-listed", {file}, QString::fromLatin1(kCourseFile));
        continue;
      }
      PlannedPage& page = module.Pages[*known];
      QString& its = Ends(file, kTestEnding) ? page.TestSource : page.Source;
      if (its.isEmpty()) its = file;
    }
  }

  QStringList ListedFiles(const ModuleSource& source, const QStringList& found) {
    QStringList listed;
    for (const QString& name : source.Pages) {
      const QString file = folder_.Find(name, source.Id + u'/');
      if (file.isEmpty() || !found.contains(file)) {
        findings_.Error("page-listed-missing", source.Place, name, source.Id);
      } else if (listed.contains(file)) {
        findings_.Error("page-listed-twice", source.Place, name);
      } else {
        listed.append(file);
      }
    }
    return listed;
  }

  NamedSource ReadPage(PlannedPage& page) {
    const QString& file = page.File();
    NamedSource named{StemOf(file), {}, {}, {}};
    const std::optional<QByteArray> bytes = folder_.Bytes(file, kPageLimit, findings_);
    if (!bytes) return named;
    named.Hash =
        QString::fromLatin1(QCryptographicHash::hash(*bytes, QCryptographicHash::Sha256).toHex().left(16));
    if (page.Source.isEmpty()) {
      page.Markup = PageMarkup::FromMarkdown(QLatin1String("# ") + WordsOfName(file), 0, file, findings_);
    } else if (Ends(file, u".rtf") && !HasFileLinks(*bytes)) {
      page.What = PlannedPage::Kind::RichText;
      page.RichText = *bytes;
      if (!IsRtf(*bytes)) findings_.Error("page-no-rich-text", {file});
      named.Heading = WordsOfName(file);
    } else {
      ReadMarkup(page, *bytes);
    }
    named.Topic = page.Matter.Topic;
    if (named.Heading.isEmpty()) named.Heading = page.Markup.Heading();
    return named;
  }

  void ReadMarkup(PlannedPage& page, const QByteArray& bytes) {
    const QString& file = page.Source;
    if (bytes.size() > kHtmlLimit) {
      findings_.Error("page-too-large", {file}, QString::number(kHtmlLimit));
      return;
    }
    const std::optional<QString> text = IsWordDocument(file) || Ends(file, u".rtf")
                                            ? HtmlOfWordDocument(folder_, file, findings_)
                                            : DecodeSource(bytes, file, findings_);
    if (!text) return;
    page.Matter = ReadFrontMatter(*text, file, findings_);
    page.Markup = Ends(file, u".md") ? PageMarkup::FromMarkdown(*text, page.Matter.End, file, findings_)
                                     : PageMarkup::FromHtml(*text, page.Matter.End, file, findings_);
  }

  void CheckTopics(const PlannedModule& module) {
    const PlannedPage& first = module.Pages.constFirst();
    if (first.IsTest()) {
      findings_.Error("test-first", {first.File()}, module.Source.Id);
    } else if (first.Matter.Topic.isEmpty()) {
      findings_.Error("topic-none-first", {first.File(), 1, 1}, module.Source.Id);
    }
    QHash<QString, QString> topics;
    for (const PlannedPage& page : module.Pages) {
      const QString& topic = page.Matter.Topic;
      if (topic.isEmpty()) continue;
      if (page.IsTest()) findings_.Error("test-topic", page.Matter.TopicPlace, topic);
      if (topics.contains(topic))
        findings_.Error("topic-twice", page.Matter.TopicPlace, topic, topics.value(topic));
      if (topic.contains(kTopicsPart)) findings_.Error("topic-part", page.Matter.TopicPlace, topic);
      topics.insert(topic, page.File());
    }
  }

  void CheckPractice(const PlannedModule& module) {
    for (const QString& name : module.Source.Practice) {
      const QString file = folder_.Find(name, module.Source.Id + u'/');
      const bool isTest = std::any_of(
          module.Pages.begin(), module.Pages.end(),
          [&file](const PlannedPage& page) { return !file.isEmpty() && page.TestSource == file; });
      if (!isTest) findings_.Error("practice-no-test", module.Source.Place, name, module.Source.Id);
    }
  }

  // The learner's record has one line a module.
  void CheckScored(const PlannedModule& module) {
    QString first;
    for (const PlannedPage& page : module.Pages) {
      if (!page.IsTest() || IsPractice(folder_, module.Source, page.TestSource)) continue;
      if (!first.isEmpty()) findings_.Warn("tests-share", {page.TestSource}, first);
      first = page.TestSource;
    }
  }

  const SourceFolder& folder_;
  Findings& findings_;
  CoursePlan plan_;
  PageNames names_;
};

}  // namespace

bool IsPractice(const SourceFolder& folder, const ModuleSource& module, const QString& test) {
  return std::any_of(module.Practice.begin(), module.Practice.end(),
                     [&](const QString& name) { return folder.Find(name, module.Id + u'/') == test; });
}

std::optional<CoursePlan> PlanCourse(const SourceFolder& folder, Findings& findings) {
  return Planner(folder, findings).Plan();
}
