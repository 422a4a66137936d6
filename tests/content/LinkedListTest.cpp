#include "content/LinkedList.h"

#include <array>

#include "platform/files/TextStream.h"
#include "support/TestProgram.h"

namespace {

const QByteArray kHead = "any\r\nStore Basics\r\nany\r\n";
const QByteArray kPages =
    "0001.txm*Topic*Getting started\r\n0002.txm*Page*\r\n0003.txm*Page*dropped\r\n"
    "0004.txm*Topic*Opening\r\n0005.txm*Test*\r\n";

QString Load(LinkedList& list, const QByteArray& map) {
  TextStream stream(map, "/map");
  QString name;
  list.InitLinedList();
  list.LoadExistingList(stream, name);
  return name;
}

// name|type|topic of each page.
QStringList PagesOf(const LinkedList& list) {
  int count = 7;
  QStringList names{"old"}, types{"old"}, topics{"old"};
  list.GetAllPageInfo(count, names, types, topics);
  EXPECT_EQ(names.value(0) + types.value(0) + topics.value(0), "");  // the head
  QStringList pages;
  for (int i = 1; i <= count; ++i)
    pages.append(names.at(i) + "|" + types.at(i) + "|" + topics.at(i));
  return pages;
}

// One step: "next", "back", "first", "last", "page NAME" or "topic NAME".
void Move(LinkedList& list, const QString& step) {
  const QString name = step.section(' ', 1);
  if (step == "next") list.NextPage();
  if (step == "back") list.PreviousPage();
  if (step == "first") list.GoToFirstPage();
  if (step == "last") list.GoToLastPage();
  if (step.startsWith("page")) list.SetPageAsCurrent(name);
  if (step.startsWith("topic")) list.GoToTopic(name);
}

}  // namespace

TEST(Map, EachLineIsAPage) {
  const std::pair<QByteArray, QStringList> cases[] = {
      {"", {}},
      {"0001.txm*Topic*A * B\r\n\r\n0002.txm*Page*x", {"0001.txm|Topic|A * B", "0002.txm|Page|"}},
      {"0001.txm*Topic", {"0001.txm|Topic|Topic"}},
      {"0001.txm*Page", {"0001.txm|Page|"}},
      {"0001.txm*Topic*", {"0001.txm|Topic|"}},
      {"0001.txm*topic*Start", {"0001.txm|topic|"}},
      {"0001.txm*", {"0001.txm||"}},
      {"\n\r0001.txm*Test*", {"0001.txm|Test|"}},
      {"0001.txm*Topic*\xABStart\xBB", {u"0001.txm|Topic|«Start»"_qs}},
  };
  for (const auto& [lines, pages] : cases) {
    LinkedList list;
    EXPECT_EQ(Load(list, kHead + lines), "Store Basics");
    EXPECT_EQ(PagesOf(list), pages) << lines.toStdString();
    EXPECT_EQ(list.PageCount(), pages.size());
  }
}

TEST(Map, ALineWithoutAStarStopsTheReadingAndNamesTheMap) {
  LinkedList list;
  EXPECT_EQ(ErrorOf([&] { Load(list, kHead + "0001.txm*Page*\r\nno page\r\n0003.txm*Page*\r\n"); }),
            "The file \"/map\" has a page line without \"*\": \"no page\"");
  EXPECT_EQ(PagesOf(list), QStringList("0001.txm|Page|"));
  EXPECT_EQ(ErrorOf([&] { Load(list, "one line\r\n"); }), "The file \"/map\" ends too early.");
  Load(list, kHead + "0001.txm*Page*\r\n");
  EXPECT_EQ(ErrorOf([&] { list.GetCurrentPageTopName(); }),
            "The file \"/map\" has no topic at or before the page \"0001.txm\".");
  Load(list, kHead);
  list.NextPage();
  list.PreviousPage();
  EXPECT_EQ(list.GetCurrentPageName() + list.GetNextPageName() + list.GetPrevPageName(), "");
}

TEST(LinkedList, MovesAndLookUps) {
  // Steps; the previous, current and next page; the topic, "!" when there is none.
  const std::array<const char*, 3> cases[] = {
      {"", "|0001.txm|0002.txm", "Getting started"},
      {"next,next", "0002.txm|0003.txm|0004.txm", "Getting started"},
      {"last", "0004.txm|0005.txm|", "Opening"},
      {"last,next", "0004.txm|0005.txm|", "Opening"},
      {"last,first", "|0001.txm|0002.txm", "Getting started"},
      {"back,back", "||0001.txm", "!"},
      {"back,next", "|0001.txm|0002.txm", "Getting started"},
      {"page 0004.txm", "0003.txm|0004.txm|0005.txm", "Opening"},
      {"page 0004.TXM", "|0001.txm|0002.txm", "Getting started"},
      {"page ", "|0001.txm|0002.txm", "Getting started"},
      {"topic Opening", "0003.txm|0004.txm|0005.txm", "Opening"},
      {"next,topic opening", "0001.txm|0002.txm|0003.txm", "Getting started"},
  };
  for (const auto& [steps, expected, topic] : cases) {
    LinkedList list;
    Load(list, kHead + kPages);
    for (const QString& step : QString(steps).split(','))
      Move(list, step);
    const QStringList names{list.GetPrevPageName(), list.GetCurrentPageName(), list.GetNextPageName()};
    EXPECT_EQ(names.join('|'), expected) << steps;
    EXPECT_TRUE(list.PageExist("0005.txm") && !list.PageExist("0006.txm") && !list.PageExist(""));
    QString topicName = "!";
    IgnoreErrors([&] { topicName = list.GetCurrentPageTopName(); });
    EXPECT_EQ(topicName, topic) << steps;
  }
}

TEST(LinkedList, AnotherModuleTakesThePlaceOfTheFirst) {
  LinkedList list;
  Load(list, kHead + kPages);
  list.CleanUp();
  EXPECT_EQ(list.GetCurrentPageName(), "");
  list.InitLinedList();
  EXPECT_EQ(list.PageCount(), 0);
  Load(list, kHead + "x*Topic*X\r\n");
  EXPECT_EQ(PagesOf(list), QStringList("x|Topic|X"));
}

TEST(LinkedList, TheSearchListGivesTheTopics) {
  const std::pair<QByteArray, QStringList> cases[] = {{kPages, {"Getting started", "Opening"}},
                                                      {"a*Page*x\r\nb*Topic*\r\n", {}}};
  for (const auto& [pages, expected] : cases) {
    LinkedList list;
    TextStream stream(kHead + pages, "/map");
    QString name;
    list.InitSearchLinkedList();
    list.LoadNewSearchList(stream, name);
    int count = -1;
    QStringList topics{"old"};
    list.GetTopics(count, topics);
    EXPECT_EQ(topics, expected);
    EXPECT_EQ(count, expected.size());
    EXPECT_EQ(name, "Store Basics");
  }
}
