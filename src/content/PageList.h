// The page list of the open module. The course screen owns its content; others ask it for the page.
#pragma once

#include "content/LinkedList.h"

inline LinkedList gPageList;
