#include "pages/common/PageBudget.h"

#include <QChar>
#include <utility>

namespace {

constexpr qsizetype kLetter = 10;
constexpr qsizetype kForeignLetter = 40;  // of scripts that are shaped, or whose font is looked for
constexpr char16_t kFirstForeign = 0x0590;
constexpr qsizetype kLine = 100;
constexpr qsizetype kRun = 80;
constexpr qsizetype kParagraph = 400;
constexpr qsizetype kTable = 2000;
constexpr qsizetype kCell = 1000;
constexpr qsizetype kPicture = 2000;
constexpr qsizetype kObject = 8000;
constexpr qsizetype kPlace = 200;
constexpr qsizetype kInstruction = 2;
constexpr qsizetype kTag = 80;

constexpr qsizetype kBetweenCalls = 100'000;

constexpr bool IsForeign(char16_t c) {
  const bool isPunctuation = c >= 0x2000 && c < 0x2E80;
  return c >= kFirstForeign && !isPunctuation;
}

qsizetype WorkOf(QChar c) {
  if (c == QChar::LineSeparator) return kLine;
  return IsForeign(c.unicode()) ? kForeignLetter : kLetter;
}

}  // namespace

PageBudget::PageBudget(std::function<void()> goesOn)
    : goesOn_(std::move(goesOn)), nextCall_(left_ - kBetweenCalls) {}

qsizetype PageBudget::TakeText(QStringView text) {
  if (text.isEmpty() || !Take(kRun)) return 0;
  qsizetype fitting = 0;
  while (fitting < text.size() && Take(WorkOf(text[fitting])))
    ++fitting;
  return fitting;
}

bool PageBudget::TakeParagraph() {
  return Take(kParagraph);
}

bool PageBudget::TakeTable() {
  return Take(kTable);
}

bool PageBudget::TakeCells(qsizetype count) {
  return Take(count * kCell);
}

bool PageBudget::TakePicture() {
  return Take(kPicture);
}

bool PageBudget::TakeObject() {
  return Take(kObject);
}

bool PageBudget::TakePlace() {
  return Take(kPlace);
}

bool PageBudget::TakeInstruction() {
  return Take(kInstruction);
}

bool PageBudget::TakeTag() {
  return Take(kTag);
}

bool PageBudget::Take(qsizetype work) {
  if (work > left_) isSpent_ = true;
  if (isSpent_) return false;
  left_ -= work;
  if (left_ < nextCall_) {
    nextCall_ = left_ - kBetweenCalls;
    if (goesOn_) goesOn_();
  }
  return true;
}
