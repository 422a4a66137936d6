// The wait window: a line of text over a moving picture while something takes its time. The page print
// shows it.
#pragma once

#include <memory>

#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/PictureBox.h"

class MoviePlayer;

class Animation_Viewer final : public Form {
 public:
  Animation_Viewer();
  ~Animation_Viewer() override;

  // Gives the window its title and its line of text, and plays the movie again and again. `file` is its
  // program path; RunTimeError when it is not there. Without a player for it a picture stands in its place.
  void LoadAnimatedGif(const QString& file, const QString& title, const QString& label);
  // Ends the movie and closes the window.
  void CloseAnimatedGif();

 protected:
  void Form_Unload() override;

 private:
  void Play(const QString& file);

  PictureBox* picture1_;
  Label* label1_;
  std::unique_ptr<MoviePlayer> animation1_;
};
