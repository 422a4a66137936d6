#include "content/LinkedList.h"

#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"
#include "platform/files/Paths.h"
#include "platform/files/TextStream.h"
#include "texts/Descriptions.h"

namespace {

constexpr int kMain = 0;
constexpr int kSearch = 1;

constexpr QChar kSeparator = u'*';
constexpr QStringView kTopicType = u"Topic";

struct PageLine {
  QString Name;
  QString Type;
  QString TopName;
};

// A line that is not empty, taken apart.
PageLine ParsePageLine(const QString& line, const QString& mapName) {
  const qsizetype first = line.indexOf(kSeparator);
  if (first < 0) throw RunTimeError(Describe("map-line", NamedPath(mapName), line));
  const QString rest = line.mid(first + 1);
  const qsizetype second = rest.indexOf(kSeparator);
  const QString type = second < 0 ? rest : rest.left(second);
  // Without a second "*" the third field is the rest once more, so a line that ends behind "Topic" has
  // a topic of that name. Maps rely on it.
  const QString third = second < 0 ? rest : rest.mid(second + 1);
  return {line.left(first), type, type == kTopicType ? third : QString()};
}

// One stray line feed and then one stray carriage return may begin a line.
QString WithoutStrayLineEnd(QString line) {
  if (line.startsWith(u'\n')) line.remove(0, 1);
  if (line.startsWith(u'\r')) line.remove(0, 1);
  return line;
}

}  // namespace

Node* LinkedList::Chain::Append(const QString& name, const QString& type, const QString& topName) {
  Node& node = Nodes.emplace_back(Node{name, type, topName, Tail, nullptr});
  if (Tail != nullptr) Tail->Next = &node;
  if (Head == nullptr) Head = &node;
  Tail = &node;
  return &node;
}

void LinkedList::Chain::Clear() {
  Nodes.clear();
  Head = nullptr;
  Tail = nullptr;
}

void LinkedList::CleanUp() {
  currentNode_[kMain] = nullptr;
  main_.Clear();
}

void LinkedList::InitLinedList() {
  main_.Clear();
  currentNode_[kMain] = main_.Append({}, {}, {});
  pageCount_ = 0;
}

void LinkedList::InitSearchLinkedList() {
  currentNode_[kMain] = nullptr;
  search_.Clear();
  currentNode_[kSearch] = search_.Append({}, {}, {});
}

void LinkedList::Add_Page(const QString& name, const QString& type, const QString& topName, bool /*flag*/) {
  currentNode_[kMain] = main_.Append(name, type, topName);
  ++pageCount_;
}

void LinkedList::AddToSearchLinkedList(const QString& name, const QString& type, const QString& topName,
                                       bool /*flag*/) {
  if (search_.Head == nullptr) InitSearchLinkedList();
  Node* node = search_.Append(name, type, topName);
  currentNode_[kSearch] = node;
  if (node->Prev == search_.Head) {
    node->Prev = nullptr;
    return;
  }
  // From the second page on the append of the main list does the work, so it moves what belongs to that
  // list as well. A list object carries only one of the two.
  currentNode_[kMain] = node;
  ++pageCount_;
}

void LinkedList::LoadExistingList(const QString& path, QString& moduleName) {
  TextStream map(ReadProgramFile(path, kTextFileLimit), path);
  LoadExistingList(map, moduleName);
}

void LinkedList::LoadExistingList(TextStream& map, QString& moduleName) {
  ReadMap(map, moduleName, &LinkedList::Add_Page);
  GoToFirstPage();
}

void LinkedList::LoadNewSearchList(const QString& path, QString& moduleName) {
  TextStream map(ReadProgramFile(path, kTextFileLimit), path);
  LoadNewSearchList(map, moduleName);
}

void LinkedList::LoadNewSearchList(TextStream& map, QString& moduleName) {
  ReadMap(map, moduleName, &LinkedList::AddToSearchLinkedList);
}

void LinkedList::NextPage() {
  Node*& current = currentNode_[kMain];
  if (current != nullptr && current->Next != nullptr) current = current->Next;
}

QString LinkedList::GetNextPageName() const {
  const Node* current = currentNode_[kMain];
  return current != nullptr && current->Next != nullptr ? current->Next->PageName : QString();
}

void LinkedList::PreviousPage() {
  Node*& current = currentNode_[kMain];
  if (current != nullptr && current->Prev != nullptr) current = current->Prev;
}

QString LinkedList::GetPrevPageName() const {
  const Node* current = currentNode_[kMain];
  return current != nullptr && current->Prev != nullptr ? current->Prev->PageName : QString();
}

QString LinkedList::GetCurrentPageName() const {
  const Node* current = currentNode_[kMain];
  return current != nullptr ? current->PageName : QString();
}

void LinkedList::GetAllPageInfo(int& count, QStringList& names, QStringList& types,
                                QStringList& topNames) const {
  count = 0;
  names.clear();
  types.clear();
  topNames.clear();
  for (const Node* node = main_.Head; node != nullptr; node = node->Next) {
    if (node != main_.Head) ++count;
    names.append(node->PageName);
    types.append(node->PageType);
    topNames.append(node->TopName);
  }
}

QString LinkedList::GetCurrentPageTpye() const {
  const Node* current = currentNode_[kMain];
  return current != nullptr ? current->PageType : QString();
}

QString LinkedList::GetCurrentPageTopName() const {
  for (const Node* node = currentNode_[kMain]; node != nullptr; node = node->Prev) {
    if (!node->TopName.isEmpty()) return node->TopName;
  }
  throw RunTimeError(Describe("map-no-topic", NamedPath(mapName_), GetCurrentPageName()));
}

// The head is found only where it is a page, in a list that was never initialised.
Node* LinkedList::FindPage(const QString& name) const {
  for (Node* node = main_.Head; node != nullptr; node = node->Next) {
    if (node->PageName == name && !(node == main_.Head && name.isEmpty())) return node;
  }
  return nullptr;
}

bool LinkedList::PageExist(const QString& name) const {
  return FindPage(name) != nullptr;
}

void LinkedList::SetPageAsCurrent(const QString& name) {
  if (Node* page = FindPage(name)) currentNode_[kMain] = page;
}

void LinkedList::GoToFirstPage() {
  currentNode_[kMain] = main_.Head != nullptr ? main_.Head->Next : nullptr;
}

void LinkedList::GoToLastPage() {
  currentNode_[kMain] = main_.Tail;
}

void LinkedList::GoToTopic(const QString& topicName) {
  for (Node* node = main_.Head; node != nullptr; node = node->Next) {
    if (node->TopName != topicName) continue;
    currentNode_[kMain] = node;
    return;
  }
}

void LinkedList::GetTopics(int& count, QStringList& topics) const {
  count = 0;
  topics.clear();
  for (const Node* node = search_.Head; node != nullptr; node = node->Next) {
    if (node->TopName.isEmpty()) continue;
    topics.append(node->TopName);
    ++count;
  }
}

void LinkedList::ReadMap(TextStream& map, QString& moduleName, AddOperation add) {
  mapName_ = map.Thing();
  map.ReadLine();
  moduleName = map.ReadLine();
  map.ReadLine();
  while (!map.AtEndOfStream()) {
    const QString line = WithoutStrayLineEnd(map.ReadLine());
    if (line.isEmpty()) continue;
    const PageLine page = ParsePageLine(line, mapName_);
    (this->*add)(page.Name, page.Type, page.TopName, true);
  }
}

QString TopicOfPage() {
  QString topic;
  IgnoreErrors([&topic] { topic = gPageList.GetCurrentPageTopName(); });
  return topic;
}
