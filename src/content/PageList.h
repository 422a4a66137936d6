// The page list of the open module. The course screen owns its content; others ask it for the page.
#pragma once

#include "content/LinkedList.h"

inline LinkedList gPageList;

// The topic that the current page is recorded under: empty where its map names none at or before it.
QString TopicOfPage();
