#include "Bytes.h"
#include "content/LinkedList.h"
#include "platform/RunTimeError.h"
#include "platform/files/TextStream.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const QByteArray bytes = BytesOf(data, size);
  QString name;
  LinkedList pages;
  pages.InitLinedList();
  IgnoreErrors([&] {
    TextStream map(bytes, QStringLiteral("input"));
    pages.LoadExistingList(map, name);
  });
  IgnoreErrors([&] { pages.GetCurrentPageTopName(); });
  while (!pages.GetNextPageName().isEmpty())
    pages.NextPage();
  pages.GoToLastPage();
  while (!pages.GetPrevPageName().isEmpty())
    pages.PreviousPage();

  LinkedList search;
  search.InitSearchLinkedList();
  IgnoreErrors([&] {
    TextStream map(bytes, QStringLiteral("input"));
    search.LoadNewSearchList(map, name);
  });
  int count = 0;
  QStringList topics;
  search.GetTopics(count, topics);
  return 0;
}
