// What the lines of the progress file say about the open course: the overall percentage, what was viewed,
// how the tests went. Reads the gProg arrays as ReadProgressFile left them and changes nothing.
#pragma once

#include <QString>

// Viewed entries over all lines. A line counts one more than "__" occurs in its list, so that a line with
// an empty list counts as one. RunTimeError that names the course when there are no lines at all.
int CountViewedTopics();
// Topics of all modules of the open course; 0 when it has no modules.
int CountCourseTopics();
// Percent, 0 to 100. RunTimeError that names the course when it has no topics.
int GetOverallProgress();

// `module` and `topic` are indices into the open course; RunTimeErrors outside it.
bool IsModuleViewed(int module);
// True also when the topic's name is a part of a viewed one's.
bool IsTopicViewed(int module, int topic);

struct ModuleResults {
  QString Highest, Last;  // "80%"; empty where there is no result
};
// Of the last line of the module.
ModuleResults ResultsOfModule(int module);
