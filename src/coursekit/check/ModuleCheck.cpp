#include "coursekit/check/ModuleCheck.h"

#include <QHash>
#include <QMap>
#include <QSet>
#include <QUrl>
#include <algorithm>

#include "assessment/TestFile.h"
#include "content/LinkTarget.h"
#include "content/LinkedList.h"
#include "content/REGISTRY.h"
#include "coursekit/PageFacts.h"
#include "frame/ProgramState.h"
#include "pages/common/PageLink.h"
#include "pages/html/HtmlCharset.h"
#include "pages/rtf/RtfReader.h"
#include "platform/MovieKind.h"
#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"
#include "platform/files/Paths.h"
#include "reference/CourseFiles.h"

namespace {

constexpr qsizetype kPageNameLength = 8, kLinkLength = 15;  // of a page's name, of a review link

class ModuleCheck {
 public:
  ModuleCheck(const CourseRecord& course, Findings& findings) : course_(course), findings_(findings) {}

  void Run() {
    for (const ModuleRecord& module : course_.Modules)
      CheckMap(module.ModuleId);
    for (auto page = facts_.cbegin(); page != facts_.cend(); ++page)
      CheckLinks(page.key(), page.value());
    for (const ModuleRecord& module : course_.Modules)
      CheckTests(module.ModuleId);
    for (const ModuleRecord& module : course_.Modules)
      CheckUnused(module.ModuleId);
    CheckHidden();
  }

 private:
  struct Page {
    QString Name, Type, Topic;
  };

  // What stands in a module's folder and is none of its own.
  void CheckUnused(const QString& id) {
    QSet<QString> known = {QStringLiteral("map.txt")};
    for (const Page& page : maps_.value(id)) {
      known.insert(page.Name.toCaseFolded());
      if (page.Type == kTestPage) known.insert(TestName(id, page.Name).toCaseFolded());
      const PageFacts facts = facts_.value(id + u'/' + page.Name);
      for (const QString& picture : facts.Pictures)
        known.insert(picture.toCaseFolded());
      for (const QString& movie : facts.Movies)
        known.insert(QLatin1String("movies/") + movie.section(u',', 0, 0).toCaseFolded());
    }
    for (const QString& folder : {QString(), QStringLiteral("Movies/")}) {
      for (const QString& file : ListFiles(id + u'/' + folder)) {
        if (!known.contains((folder + file).toCaseFolded()))
          findings_.Warn("file-unused", {id + u'/' + folder + file});
      }
    }
  }

  // Hidden attachments are in no list: links alone lead to them.
  void CheckHidden() {
    const QString folder = Attachment(course_, QStringLiteral("Hidden"));
    if (folder.isEmpty() || course_.RepNum.isEmpty()) return;
    QSet<QString> linked;
    for (const PageFacts& facts : std::as_const(facts_)) {
      for (const PageLink& link : facts.Links) {
        linked.insert(link.Target.toCaseFolded());
        linked.insert(QUrl::fromPercentEncoding(link.Target.toUtf8()).toCaseFolded());
      }
    }
    for (const QString& file : ListFiles(folder)) {
      if (!linked.contains(file.toCaseFolded()))
        findings_.Warn("file-unused",
                       {QLatin1String("Repository/") + course_.RepNum + QLatin1String("/Hidden/") + file});
    }
  }

  static QString TestName(const QString& id, const QString& page) {
    return id + u'_' + page.chopped(std::min<qsizetype>(4, page.size())) + QLatin1String("TST");
  }

  // Whether the course has a page of that name.
  bool HasPage(const QString& module, const QString& page) const {
    const QList<Page> pages = maps_.value(module);
    return std::any_of(pages.begin(), pages.end(), [&page](const Page& its) { return its.Name == page; });
  }

  bool IsTestPage(const QString& module, const QString& page) const {
    const QList<Page> pages = maps_.value(module);
    return std::any_of(pages.begin(), pages.end(),
                       [&page](const Page& its) { return its.Name == page && its.Type == kTestPage; });
  }

  void CheckMap(const QString& id) {
    const SourcePlace place{id + QLatin1String("/Map.txt")};
    LinkedList list;
    list.InitLinedList();
    try {
      QString name;
      list.LoadExistingList(MapPath(id), name);
    } catch (const RunTimeError& error) {
      findings_.Error("store-unreadable", place, error.Description());
    }
    int count = 0;
    QStringList names, types, topics;
    list.GetAllPageInfo(count, names, types, topics);
    QList<Page>& pages = maps_[id];
    for (int i = 1; i <= count; ++i)
      pages.append({names.at(i), types.at(i), topics.at(i)});
    if (pages.isEmpty()) {
      findings_.Error("module-no-pages", place, id);
      return;
    }
    if (pages.constFirst().Topic.isEmpty()) findings_.Error("topic-none-first", place, id);
    if (pages.constFirst().Type == kTestPage) findings_.Error("test-first", place, id);
    CheckTopics(pages, place);
    QSet<QString> seen;
    for (const Page& page : std::as_const(pages)) {
      if (seen.contains(page.Name)) findings_.Error("store-page-twice", place, page.Name);
      if (page.Name.size() != kPageNameLength) findings_.Warn("store-page-name", place, page.Name);
      if (!seen.contains(page.Name)) CheckPage(id, page.Name);
      seen.insert(page.Name);
    }
  }

  void CheckTopics(const QList<Page>& pages, const SourcePlace& place) {
    QStringList seen;
    for (const Page& page : pages) {
      if (page.Topic.isEmpty()) continue;
      if (seen.contains(page.Topic)) findings_.Error("topic-twice", place, page.Topic, page.Name);
      if (page.Topic.contains(u'_')) findings_.Error("topic-part", place, page.Topic);
      seen.append(page.Topic);
    }
    // The player looks for a topic's name anywhere in the list of those viewed.
    for (const QString& topic : std::as_const(seen)) {
      for (const QString& other : std::as_const(seen)) {
        if (other != topic && other.contains(topic)) findings_.Warn("topic-inside", place, topic, other);
      }
    }
  }

  void CheckPage(const QString& id, const QString& name) {
    const QString path = id + u'/' + name;
    const SourcePlace place{path};
    if (!ProgramFileExists(path)) {
      findings_.Error("store-page-missing", place);
      return;
    }
    QByteArray bytes;
    if (!IgnoreErrors([&] { bytes = ReadProgramFile(path, kPageLimit); })) {
      findings_.Error("store-unreadable", place, path);
      return;
    }
    // A lead-in may well be blanks.
    const QByteArray head = bytes.left(kLeadInSize).trimmed();
    if (IsRtf(head) || (head.startsWith('<') && IsHtml(bytes))) {
      findings_.Error("store-no-lead-in", place);
      return;
    }
    const PageFacts facts = ReadPageFacts(bytes, path, [&id](const QString& picture) {
      return ReadProgramFile(id + u'/' + picture, kPageLimit);
    });
    if (!facts.Error.isEmpty()) findings_.Error("page-unreadable", place, facts.Error);
    for (const QString& picture : facts.MissingPictures)
      findings_.Error("picture-unreadable", place, picture);
    for (const QString& movie : facts.Movies)
      CheckMovie(id, movie, place);
    facts_.insert(path, facts);
  }

  void CheckMovie(const QString& id, const QString& dataText, const SourcePlace& place) {
    const QString name = dataText.section(u',', 0, 0);
    const MovieKind kind = MovieKindOf(dataText);
    if (kind == MovieKind::None) {
      findings_.Error("movie-kind", place, name);
    } else if (!ProgramFileExists(id + QLatin1String("/Movies/") + name)) {
      findings_.Error("movie-missing", place, name);
    } else if (kind == MovieKind::Director) {
      findings_.Error("movie-no-player", place, name);
    } else if (HasPlayerFolder() && !HasPlayer(kind)) {
      findings_.Error("movie-player-absent", place, name);
    }
  }

  // A built course has no players and comes into a store that may have them.
  static bool HasPlayerFolder() { return FolderExists(QStringLiteral("players")); }
  static bool HasPlayer(MovieKind kind) {
    QString player;
    kind == MovieKind::Flash ? GetFlashVersion(player) : GetMediaPlayerVersion(player);
    return !player.isEmpty();
  }

  void CheckLinks(const QString& path, const PageFacts& facts) {
    for (const PageLink& link : facts.Links) {
      const SourcePlace place{path};
      const LinkTarget target = ReadLinkTarget(link.Target);
      if (link.Kind == PageLink::kPlace) {
        if (!facts.Places.contains(link.Target.toLower()))
          findings_.Error("place-missing", place, link.Target);
      } else if (target.What == LinkTarget::Form::Page) {
        CheckPageLink(place, target);
      } else if (target.What == LinkTarget::Form::PageAndPlace) {
        if (!ProgramFileExists(target.Page)) findings_.Error("store-link-file", place, target.Page);
      } else if (target.What == LinkTarget::Form::Document && !HasAttachment(target.Text)) {
        findings_.Error("store-attachment", place, link.Target);
      }
    }
  }

  void CheckPageLink(const SourcePlace& place, const LinkTarget& target) {
    const QString to = target.Module + u'/' + target.Page;
    if (!maps_.contains(target.Module)) {
      findings_.Error("store-link-module", place, target.Text, target.Module);
    } else if (!HasPage(target.Module, target.Page)) {
      findings_.Error("link-no-such-page", place, target.Text);
    } else if (IsTestPage(target.Module, target.Page)) {
      findings_.Warn("link-to-test", place, to);
    } else if (!target.Place.isEmpty() && !facts_[to].Places.contains(target.Place)) {
      findings_.Error("place-missing", place, target.Place);
    }
  }

  bool HasAttachment(const QString& target) const {
    for (const QString& name : {target, QUrl::fromPercentEncoding(target.toUtf8())}) {
      for (const QString& folder : {QString(), QStringLiteral("Hidden\\")}) {
        const QString path = Attachment(course_, folder + name);
        if (!path.isEmpty() && FileExists(path)) return true;
      }
    }
    return false;
  }

  void CheckTests(const QString& id) {
    QString scored;
    for (const Page& page : maps_.value(id)) {
      if (page.Type != kTestPage) continue;
      const QString path = id + u'/' + TestName(id, page.Name);
      if (!ProgramFileExists(path)) {
        findings_.Error("store-test-missing", {path}, page.Name);
        continue;
      }
      const bool isScored = CheckTest(path);
      if (isScored && !scored.isEmpty()) findings_.Warn("tests-share", {path}, scored);
      if (isScored) scored = path;
    }
  }

  // Whether it is a scored one.
  bool CheckTest(const QString& path) {
    const SourcePlace place{path};
    try {
      const TestContent test = ReadTest(ReadProgramFile(path, kTextFileLimit), path);
      if (test.Type != u"1" && test.Type != u"2") findings_.Warn("store-test-type", place, test.Type);
      for (qsizetype i = 0; i < test.Questions.size(); ++i)
        CheckQuestion(test.Questions.at(i), QString::number(i + 1), place);
      return test.Type != u"2";
    } catch (const RunTimeError& error) {
      findings_.Error("store-test-unreadable", place, error.Description());
      return false;
    }
  }

  void CheckQuestion(const QuestionRecord& question, const QString& number, const SourcePlace& place) {
    const auto isFlag = [](const AnswerRecord& answer) {
      return answer.AnswerFlag == u"0" || answer.AnswerFlag == u"1";
    };
    if (question.Answers.isEmpty()) {
      findings_.Error("store-no-answers", place, number);
    } else if (!std::all_of(question.Answers.begin(), question.Answers.end(), isFlag)) {
      findings_.Error("store-flags", place, number);
    } else if (question.CorrectCount == 0) {
      findings_.Error("store-no-right", place, number);
    }
    const QString& link = question.ReviewLink;
    if (link.isEmpty()) return;
    if (link.size() != kLinkLength || !HasPage(link.left(6), link.mid(7, kPageNameLength)))
      findings_.Error("store-review", place, number, link);
  }

  const CourseRecord& course_;
  Findings& findings_;
  QHash<QString, QList<Page>> maps_;  // by module
  QMap<QString, PageFacts> facts_;    // by path, of the pages that can be read
};

}  // namespace

void CheckModules(const CourseRecord& course, Findings& findings) {
  ModuleCheck(course, findings).Run();
}
