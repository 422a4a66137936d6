// What a Wayland session tells of its first display.
#include <wayland-client.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "platform/forms/DisplayScale.h"

namespace {

constexpr uint32_t kOutputVersion = 2;  // from there on an output tells its scale

struct Output {
  wl_output* Proxy = nullptr;
  QSize Mode;
  int Scale = 1;
  bool Turned = false;  // by a quarter
};

void TakeGeometry(void* data, wl_output*, int32_t, int32_t, int32_t, int32_t, int32_t, const char*,
                  const char*, int32_t transform) {
  static_cast<Output*>(data)->Turned = (transform & WL_OUTPUT_TRANSFORM_90) != 0;
}

void TakeMode(void* data, wl_output*, uint32_t flags, int32_t width, int32_t height, int32_t) {
  if ((flags & WL_OUTPUT_MODE_CURRENT) != 0) static_cast<Output*>(data)->Mode = {width, height};
}

void TakeScale(void* data, wl_output*, int32_t scale) {
  static_cast<Output*>(data)->Scale = std::max(scale, 1);
}

// Sessions name no primary display: the first is Qt's.
void TakeGlobal(void* data, wl_registry* registry, uint32_t name, const char* kind, uint32_t version) {
  auto& output = *static_cast<Output*>(data);
  if (output.Proxy != nullptr || version < kOutputVersion || std::strcmp(kind, wl_output_interface.name) != 0)
    return;
  output.Proxy =
      static_cast<wl_output*>(wl_registry_bind(registry, name, &wl_output_interface, kOutputVersion));
  static const wl_output_listener listener = {TakeGeometry, TakeMode, [](void*, wl_output*) {},
                                              TakeScale,    nullptr,  nullptr};
  wl_output_add_listener(output.Proxy, &listener, &output);
}

}  // namespace

DisplaySize AskWaylandDisplay() {
  const std::unique_ptr<wl_display, decltype(&wl_display_disconnect)> session(wl_display_connect(nullptr),
                                                                              &wl_display_disconnect);
  if (session == nullptr) return {};
  const std::unique_ptr<wl_registry, decltype(&wl_registry_destroy)> registry(
      wl_display_get_registry(session.get()), &wl_registry_destroy);
  static const wl_registry_listener listener = {TakeGlobal, [](void*, wl_registry*, uint32_t) {}};
  Output output;
  wl_registry_add_listener(registry.get(), &listener, &output);
  wl_display_roundtrip(session.get());  // the outputs are named, then describe themselves
  wl_display_roundtrip(session.get());
  if (output.Proxy != nullptr) wl_output_destroy(output.Proxy);
  const QSize size = output.Turned ? output.Mode.transposed() : output.Mode;
  return {size, size / output.Scale};
}
