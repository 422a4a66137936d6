#include "coursekit/build/CourseBuilder.h"

#include <QHash>
#include <QSet>

#include "content/LinkTarget.h"
#include "coursekit/PageFacts.h"
#include "coursekit/build/CoursePlan.h"
#include "coursekit/build/ReferenceResolver.h"
#include "coursekit/build/StoreTexts.h"
#include "coursekit/build/TestText.h"
#include "coursekit/sources/GlossarySource.h"
#include "pages/common/PageLink.h"
#include "pages/html/HtmlReader.h"
#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"

namespace {

constexpr char kLeadIn[] = "Tallowmere course page 1.0  \r\n";
static_assert(sizeof(kLeadIn) - 1 == kLeadInSize);

const QString kAboutSource = QStringLiteral("about.txt");
const QString kTrademarkFolder = QStringLiteral("trademark");

class CourseBuilder {
 public:
  CourseBuilder(const SourceFolder& folder, const CoursePlan& plan, Findings& findings,
                const BuildProgress& progress)
      : folder_(folder),
        plan_(plan),
        findings_(findings),
        progress_(progress),
        resolver_(folder, plan, course_) {}

  BuiltCourse Build() {
    course_.Name = plan_.Course.Name;
    course_.PageNames = plan_.PageNames;
    for (const PlannedModule& module : plan_.Modules)
      all_ += static_cast<int>(module.Pages.size());
    Add(QStringLiteral("registry/%1.reg").arg(plan_.Course.Name), RegistryText(plan_.Course));
    for (const PlannedModule& module : plan_.Modules)
      BuildModule(module);
    CheckPlaces();
    BuildGlossary();
    BuildAbout();
    BuildTrademarks();
    CopyAttachments();
    return std::move(course_);
  }

 private:
  void Add(const QString& path, const QByteArray& bytes) { course_.Files[path].Bytes = bytes; }

  void BuildModule(const PlannedModule& module) {
    const QString& id = module.Source.Id;
    Add(id + QLatin1String("/Map.txt"), MapText(module));
    for (const PlannedPage& page : module.Pages) {
      BuildPage(id, page);
      if (page.IsTest()) BuildTest(module.Source, page);
      if (progress_) progress_(++done_, all_);
    }
  }

  void BuildPage(const QString& id, const PlannedPage& page) {
    const QString path = id + u'/' + page.Name;
    const bool isMarkup = page.What == PlannedPage::Kind::Markup;
    const QByteArray content = isMarkup ? HtmlOf(id, page.Markup, page.File()) : page.RichText;
    Add(path, kLeadIn + content);
    course_.Sources[path] = page.File();
    facts_.insert(path, FactsOf(path, page.File()));
  }

  void BuildTest(const ModuleSource& module, const PlannedPage& page) {
    const QString& file = page.TestSource;
    const std::optional<QString> text = folder_.Text(file, kHtmlLimit, findings_);
    if (!text) return;
    const int before = findings_.Errors();
    const GiftWords words{plan_.Course.TrueWord, plan_.Course.FalseWord};
    QList<TestQuestion> questions;
    for (const GiftQuestion& question : ReadGift(*text, file, words, findings_))
      questions.append(WithReview(question, file));
    if (questions.isEmpty() && findings_.Errors() == before) findings_.Error("gift-no-questions", {file});
    const QString name =
        module.Id + u'/' + module.Id + u'_' + page.Name.section(u'.', 0, 0) + QLatin1String("TST");
    course_.Sources[name] = file;
    Add(name, TestText(IsPractice(folder_, module, file), questions));
  }

  // Without a title the learner reads what the page to review is about.
  TestQuestion WithReview(const GiftQuestion& question, const QString& file) {
    if (question.Review.isEmpty()) return {question, question.Title, {}};
    const auto page = plan_.Addresses.constFind(folder_.Find(question.Review.section(u'#', 0, 0), file));
    if (page == plan_.Addresses.cend()) {
      findings_.Error("review-nowhere", question.ReviewPlace, question.Review);
      return {question, question.Title, {}};
    }
    const QString& label = question.Title.isEmpty() ? page->Heading : question.Title;
    return {question, label.isEmpty() ? question.Text : label, page->Module + u'_' + page->Page};
  }

  QByteArray HtmlOf(const QString& id, const PageMarkup& markup, const QString& file) {
    return markup.Html(resolver_.Targets(id, markup, file, findings_)).toUtf8();
  }

  // What the player makes of the built page.
  PageFacts FactsOf(const QString& path, const QString& file) {
    const QString folder = path.left(path.lastIndexOf(u'/') + 1);
    const PageFacts facts = ReadPageFacts(course_.Files[path].Bytes, file, [&](const QString& name) {
      const auto found = course_.Files.find(folder + name);
      if (found == course_.Files.end()) throw RunTimeError(name);
      return ReadFile(found->second.CopyOf, kPageLimit);
    });
    if (!facts.Error.isEmpty()) findings_.Error("page-unreadable", {file}, facts.Error);
    for (const QString& picture : facts.MissingPictures)
      findings_.Error("picture-unreadable", {file}, picture);
    return facts;
  }

  void CheckPlaces() {
    for (const PlannedModule& module : plan_.Modules) {
      for (const PlannedPage& page : module.Pages)
        CheckPlaces(module.Source.Id + u'/' + page.Name, page);
    }
  }

  // Links of a page to places, by what the player finds on the pages they lead to.
  void CheckPlaces(const QString& path, const PlannedPage& page) {
    for (const PageLink& link : facts_[path].Links) {
      if (link.Kind == PageLink::kPlace) {
        CheckPlace(path, link.Target.toLower(), page);
        continue;
      }
      const LinkTarget target = ReadLinkTarget(link.Target);
      if (target.What != LinkTarget::Form::Page) continue;
      const QString to = target.Module + u'/' + target.Page;
      if (!facts_.contains(to)) {
        findings_.Error("link-no-such-page", PlaceOf(page, link.Target), link.Target);
      } else if (!target.Place.isEmpty()) {
        CheckPlace(to, target.Place, page);
      }
    }
  }

  void CheckPlace(const QString& path, const QString& place, const PlannedPage& page) {
    if (place.isEmpty() || facts_[path].Places.contains(place)) return;
    findings_.Error("place-missing", PlaceOf(page, u'#' + place), place);
  }

  // Of the reference that ends so.
  static SourcePlace PlaceOf(const PlannedPage& page, const QString& end) {
    for (const PageReference& reference : page.Markup.References()) {
      if (reference.Target.endsWith(end, Qt::CaseInsensitive)) return page.Markup.PlaceOf(reference);
    }
    return {page.File()};
  }

  void BuildGlossary() {
    const QString file = folder_.Find(QString::fromLatin1(kGlossaryFile));
    if (file.isEmpty()) return;
    const std::optional<QString> text = folder_.Text(file, kTextFileLimit, findings_);
    if (!text) return;
    const QString glossary = ReadGlossarySource(*text, file, findings_);
    Add(QStringLiteral("Glossary/Glossary %1.txt").arg(plan_.Course.Name), StoreText(glossary));
  }

  void BuildAbout() {
    if (folder_.Find(kAboutSource).isEmpty()) return;
    const std::optional<QString> text = folder_.Text(kAboutSource, kTextFileLimit, findings_);
    if (text) Add(QStringLiteral("About/About %1.txt").arg(plan_.Course.Name), StoreText(*text));
  }

  // They stand in a folder that has no pictures of its own module: what they refer to lies beside them.
  void BuildTrademarks() {
    int number = 0;
    for (const QString& file : folder_.Files(kTrademarkFolder)) {
      if (!file.endsWith(QLatin1String(".md"), Qt::CaseInsensitive)) continue;
      const std::optional<QString> text = folder_.Text(file, kHtmlLimit, findings_);
      if (!text) continue;
      const PageMarkup markup = PageMarkup::FromMarkdown(*text, 0, file, findings_);
      const QString path = QStringLiteral("About/Trademark %1_%2.txm").arg(plan_.Course.Name).arg(++number);
      Add(path, kLeadIn + HtmlOf(QStringLiteral("About"), markup, file));
      FactsOf(path, file);
    }
  }

  void CopyAttachments() {
    const QString source = QString::fromLatin1(kAttachmentsFolder);
    const QString store = QLatin1String("Repository/") + plan_.Course.Repository + u'/';
    CopyFolder(source, store);
    CopyFolder(source + u'/' + QLatin1String(kHiddenAttachments), store + QLatin1String("Hidden/"));
  }

  void CopyFolder(const QString& source, const QString& store) {
    for (const QString& file : folder_.Files(source)) {
      const QString real = folder_.RealPathOf(file);
      if (real.isEmpty()) {
        findings_.Error("source-outside", {file}, file);
      } else {
        course_.Files[store + file.mid(source.size() + 1)].CopyOf = real;
      }
    }
  }

  const SourceFolder& folder_;
  const CoursePlan& plan_;
  Findings& findings_;
  const BuildProgress& progress_;
  BuiltCourse course_;
  ReferenceResolver resolver_;
  QHash<QString, PageFacts> facts_;  // of the modules' pages
  int done_ = 0, all_ = 0;
};

}  // namespace

std::optional<BuiltCourse> BuildCourse(const SourceFolder& folder, Findings& findings,
                                       const BuildProgress& progress) {
  const int before = findings.Errors();
  const std::optional<CoursePlan> plan = PlanCourse(folder, findings);
  if (!plan) return std::nullopt;
  BuiltCourse course = CourseBuilder(folder, *plan, findings, progress).Build();
  if (findings.Errors() > before) return std::nullopt;
  return course;
}
