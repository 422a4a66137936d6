// One form, shown afresh for each test and gone behind it.
#pragma once

#include <gtest/gtest.h>

#include "support/Gui.h"
#include "support/HandClock.h"
#include "support/Store.h"

template <typename TestedForm>
class FormTest : public ::testing::Test {
 protected:
  ~FormTest() override {
    FormLife::Begin({});
    Dispatcher::SetIdleCheck({});
    Gui::Settle();
  }

  Store store;
  HandClock clock;
  TestedForm& form = Fresh();

 private:
  static TestedForm& Fresh() {
    FormLife::Begin({});
    return Gui::Show<TestedForm>();
  }
};
