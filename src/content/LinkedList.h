// The pages of one module, read from its map and walked by the course screen. A list object holds a
// main list for page turning or a search list for reading a module's topics, never both in use at once.
#pragma once

#include <QString>
#include <QStringList>
#include <deque>

class TextStream;

// The type of a page that has a test.
inline const QString kTestPage = QStringLiteral("Test");

// One page of the list, which owns it.
struct Node {
  QString PageName;  // file name; empty on the head node
  QString PageType;  // "Topic", "Test", or any other word for a plain page
  QString TopName;   // topic name, empty unless the page starts a topic
  Node* Prev = nullptr;
  Node* Next = nullptr;
};

class LinkedList {
 public:
  LinkedList() = default;
  LinkedList(const LinkedList&) = delete;
  LinkedList& operator=(const LinkedList&) = delete;

  // Frees the main list, its head included. The search list stays.
  void CleanUp();
  // An empty main list: a head without texts, which is current.
  void InitLinedList();
  // An empty search list. PageCount stays.
  void InitSearchLinkedList();

  // Appends a page to the main list and makes it current. The flag has no effect. Without a head the
  // page becomes the head.
  void Add_Page(const QString& name, const QString& type, const QString& topName, bool flag = true);
  void AddToSearchLinkedList(const QString& name, const QString& type, const QString& topName,
                             bool flag = true);

  // Reads a map into the main list, initialised before, and makes the first page current. A missing
  // file or a line without "*" is a RunTimeError; what was read until then stays.
  void LoadExistingList(const QString& path, QString& moduleName);
  void LoadExistingList(TextStream& map, QString& moduleName);
  // The same into the search list.
  void LoadNewSearchList(const QString& path, QString& moduleName);
  void LoadNewSearchList(TextStream& map, QString& moduleName);

  // At the last page it stays.
  void NextPage();
  // Empty at the end.
  QString GetNextPageName() const;
  // At the first page this moves onto the head, whose name is empty; ask GetPrevPageName first.
  void PreviousPage();
  // Empty at the first page and on the head.
  QString GetPrevPageName() const;
  // Empty when no node is current, as after loading a map without pages.
  QString GetCurrentPageName() const;
  // Index 0 of the arrays is the head's empty entry, the pages follow from 1; count is the number of
  // pages.
  void GetAllPageInfo(int& count, QStringList& names, QStringList& types, QStringList& topNames) const;
  QString GetCurrentPageTpye() const;
  // The topic that the current page belongs to. A page without any topic at or before it is a
  // RunTimeError that names the map.
  QString GetCurrentPageTopName() const;
  bool PageExist(const QString& name) const;
  // The first page of that name becomes current; without one the current page stays. Case counts.
  void SetPageAsCurrent(const QString& name);
  void GoToFirstPage();
  void GoToLastPage();
  // The first node of that topic becomes current; without one the current page stays. Case counts.
  void GoToTopic(const QString& topicName);
  // The topics of the search list, in the order of the map.
  void GetTopics(int& count, QStringList& topics) const;

  // Pages added to the main list since InitLinedList.
  int PageCount() const { return pageCount_; }

 private:
  // A row of nodes. The tail is kept because maps are long and every append walks to it.
  struct Chain {
    std::deque<Node> Nodes;  // a deque leaves its elements where they are
    Node* Head = nullptr;
    Node* Tail = nullptr;

    Node* Append(const QString& name, const QString& type, const QString& topName);
    void Clear();
  };

  using AddOperation = void (LinkedList::*)(const QString&, const QString&, const QString&, bool);

  void ReadMap(TextStream& map, QString& moduleName, AddOperation add);
  Node* FindPage(const QString& name) const;

  Chain main_;
  Chain search_;
  Node* currentNode_[2] = {nullptr, nullptr};  // of the main list, of the search list
  int pageCount_ = 0;
  QString mapName_;  // of the map that was read last, for descriptions
};

// The page list of the open module. The course screen owns its content; others ask it for the page.
inline LinkedList gPageList;

// The topic that the current page is recorded under: empty where its map names none at or before it.
QString TopicOfPage();
