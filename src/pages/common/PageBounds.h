// Bounds what a page may ask of the layout, for the readers of all kinds of pages.
#pragma once

#include <functional>

#include "pages/common/RichText.h"

// A page read at the given metrics. A document can be 8,388,607 pixels high, and the layout of a higher one
// does not end: a page that would come near that is read once more at a smaller scale. Time by the square of
// a paragraph's length is avoided too: one of more than 10,000 characters goes on as another paragraph, and
// one of more than 1,000 tabs has its stops at the usual distance. A page that is cut says so in a last line.
RichPage ReadBounded(const PageMetrics& metrics, const std::function<RichPage(const PageMetrics&)>& read);
