// The wait window: a line of text over a moving picture while something takes its time. The page print
// shows it.
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/PictureBox.h"

class Animation_Viewer final : public Form {
 public:
  Animation_Viewer();

  // Gives the window its title and its line of text. `file` is the program path of the movie; RunTimeError
  // when it is not there. No player plays it yet, and the window stands without it.
  void LoadAnimatedGif(const QString& file, const QString& title, const QString& label);
  // Closes the window.
  void CloseAnimatedGif();

 private:
  PictureBox* picture1_;
  Label* label1_;
};
