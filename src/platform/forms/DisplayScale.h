// How large a twip is: one factor, chosen at the start, fits the design to the display. Decided before the
// application object, which reads it from the environment. Used by main alone.
#pragma once

#include <QByteArray>
#include <QList>
#include <QSize>
#include <QString>
#include <optional>
#include <utility>

// The largest factor at which the design fits the display, also below 1; 1 when either size is empty.
double FittingFactor(QSize display, QSize design);

// The factor that a setting names, within 0.25 and 8; nothing for a text that is no such number.
std::optional<double> FactorOf(const QString& setting);

struct DisplaySize {
  QSize Pixels;  // the display's own
  QSize Window;  // of a window that fills it; less where the session scales by itself
};

// The primary monitor's size, or the first one's; the whole screen's where the X server knows no monitors.
// Invalid without an X server. Takes half a millisecond.
DisplaySize AskX11Display();
// The first display's. Invalid without a Wayland session.
DisplaySize AskWaylandDisplay();

// Sets what the application object reads, and takes it back for the programs that the opener starts.
class DisplayScale {
 public:
  // `setting` empty: the design is fitted to the display. "1": the desktop's dpi holds. Any other factor
  // stands for itself; a text that is none counts as empty.
  DisplayScale(const QString& setting, const DisplaySize& display, QSize design);

  // Behind the application object: the environment is as it was, and the screen knows the factor.
  void Apply();

 private:
  void Set(const char* name, const QByteArray& value);

  std::optional<double> factor_;  // nothing: the desktop's dpi holds
  DisplaySize display_;
  QList<std::pair<const char*, std::optional<QByteArray>>> before_;
};
