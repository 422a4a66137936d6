// What the course screen and the screens that stand in its place have in common: the background with its two
// bars, their texts, and the page between them.
#pragma once

#include "platform/forms/Label.h"
#include "platform/forms/PictureBox.h"

namespace CourseScreenLayout {  // twips at 15 per pixel

inline constexpr Place kScreen{0, 0, 15360, 11520};
inline constexpr Place kHeader{210, 120, 12345, 375};
inline constexpr Place kPage{240, 960, 14970, 9945};
inline constexpr Place kCourseName{2160, 11145, 9255, 315};
inline constexpr double kHeaderPoints = 14.25, kCourseNamePoints = 11.25;
inline constexpr double kShrunkPageWidth = 15228;  // on a display of another scale

}  // namespace CourseScreenLayout

// The background over the whole form; plain where its picture is missing.
PictureBox* AddCourseBackground(QWidget* form, const char* name);
// A text on one of the bars.
Label* AddBarLabel(QWidget* background, const char* name, const Place& place, double points);
