// The modules of one installed course: their maps, pages, links, movies and tests. Behind CheckStore, with
// the store in force.
#pragma once

#include "coursekit/Findings.h"

struct CourseRecord;

void CheckModules(const CourseRecord& course, Findings& findings);
