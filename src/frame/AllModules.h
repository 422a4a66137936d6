// What the pseudo-course of all modules has none of: attachments and a survey belong to one course.
#pragma once

// True, behind a message, while that course is open.
bool RefusedInAllModules();
