#include "platform/forms/DisplayScale.h"

#include <xcb/randr.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "platform/forms/Screen.h"

namespace {

constexpr double kSmallest = 0.25, kLargest = 8;
constexpr int kDesignDpi = 96;  // at 15 twips a pixel

template <typename Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

template <typename Reply>
Owned<Reply> Own(Reply* reply) {
  return {reply, &std::free};
}

QSize MonitorSize(xcb_connection_t* server, xcb_window_t root) {
  const auto answer =
      Own(xcb_randr_get_monitors_reply(server, xcb_randr_get_monitors(server, root, 1), nullptr));
  if (answer == nullptr) return {};
  QSize first;
  for (auto monitors = xcb_randr_get_monitors_monitors_iterator(answer.get()); monitors.rem > 0;
       xcb_randr_monitor_info_next(&monitors)) {
    const QSize size(monitors.data->width, monitors.data->height);
    if (monitors.data->primary != 0) return size;
    if (!first.isValid()) first = size;
  }
  return first;
}

bool HasMonitors(xcb_connection_t* server) {
  const auto* extension = xcb_get_extension_data(server, &xcb_randr_id);
  if (extension == nullptr || extension->present == 0) return false;
  const auto version =
      Own(xcb_randr_query_version_reply(server, xcb_randr_query_version(server, 1, 5), nullptr));
  return version != nullptr && std::pair(version->major_version, version->minor_version) >= std::pair(1u, 5u);
}

}  // namespace

double FittingFactor(QSize display, QSize design) {
  if (display.isEmpty() || design.isEmpty()) return 1;
  return std::min(static_cast<double>(display.width()) / design.width(),
                  static_cast<double>(display.height()) / design.height());
}

std::optional<double> FactorOf(const QString& setting) {
  bool isNumber = false;
  const double factor = setting.trimmed().toDouble(&isNumber);
  if (!isNumber || !(factor >= kSmallest && factor <= kLargest)) return {};
  return factor;
}

DisplaySize AskX11Display() {
  int number = 0;
  const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> server(xcb_connect(nullptr, &number),
                                                                            &xcb_disconnect);
  if (xcb_connection_has_error(server.get()) != 0) return {};
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(server.get()));
  while (number-- > 0 && screens.rem > 1)
    xcb_screen_next(&screens);
  if (screens.rem == 0) return {};
  const QSize monitor = HasMonitors(server.get()) ? MonitorSize(server.get(), screens.data->root) : QSize();
  const QSize size =
      monitor.isEmpty() ? QSize(screens.data->width_in_pixels, screens.data->height_in_pixels) : monitor;
  return {size, size};
}

DisplayScale::DisplayScale(const QString& setting, const DisplaySize& display, QSize design)
    : display_(display) {
  Set("QT_ENABLE_HIGHDPI_SCALING", "0");
  Set("QT_SCREEN_SCALE_FACTORS", {});  // a desktop's own would come on top
  factor_ = FactorOf(setting);
  const bool isFixed = factor_.has_value();
  if (!isFixed && display.Window.isValid()) factor_ = FittingFactor(display.Window, design);
  if (!factor_ || (isFixed && *factor_ == 1)) {
    factor_.reset();
    Set("QT_SCALE_FACTOR", {});  // it would count all the same
    return;
  }
  // From 1 up Qt draws everything larger. Below, the fonts shrink by the dpi, the rest by the screen's
  // conversion of twips.
  Set("QT_SCALE_FACTOR", *factor_ > 1 ? QByteArray::number(*factor_, 'f', 6) : QByteArray());
  Set("QT_FONT_DPI", QByteArray::number(std::lround(kDesignDpi * std::min(*factor_, 1.0))));
}

void DisplayScale::Set(const char* name, const QByteArray& value) {
  before_.emplaceBack(name, qEnvironmentVariableIsSet(name) ? std::optional(qgetenv(name)) : std::nullopt);
  if (value.isEmpty()) {
    qunsetenv(name);
  } else {
    qputenv(name, value);
  }
}

void DisplayScale::Apply() {
  for (const auto& [name, value] : std::as_const(before_)) {
    if (value) {
      qputenv(name, *value);
    } else {
      qunsetenv(name);
    }
  }
  if (factor_) Screen::SetFitted(*factor_, display_.Pixels);
}
