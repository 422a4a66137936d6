// One page of a module's page list. Owned by its LinkedList.
#pragma once

#include <QString>

struct Node {
  QString PageName;  // file name; empty on the head node
  QString PageType;  // "Topic", "Test", or any other word for a plain page
  QString TopName;   // topic name, empty unless the page starts a topic
  Node* Prev = nullptr;
  Node* Next = nullptr;
};
