#include "coursescreen/StackControl.h"

#include "content/LinkedList.h"
#include "frame/ProgramState.h"
#include "platform/RunTimeError.h"
#include "texts/Descriptions.h"

namespace {
constexpr int kHighestIndex = 100;
}

void ClearReturnStack() {
  gReturnStack.clear();
}

void PushReturnPoint() {
  gReturnPoint.Course = gCurrentCourse;
  gReturnPoint.Module = gCurrentModule;
  gReturnPoint.PageName = gPageList.GetCurrentPageName();
  gReturnPoint.TopicName = TopicOfPage();
  gReturnPoint.ModuleName.clear();
  IgnoreErrors([] { gReturnPoint.ModuleName = ModuleAt(gCurrentModule).ModuleName; });
  if (gReturnStack.size() <= kHighestIndex) gReturnStack.append(gReturnPoint);
}

ReturnPoint PopReturnPoint() {
  if (gReturnStack.isEmpty()) throw RunTimeError(Describe("no-return-place"));
  return gReturnStack.takeLast();
}
