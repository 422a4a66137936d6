#include "Bytes.h"
#include "content/REGISTRY.h"
#include "platform/registry/Registry.h"

namespace {

void ReadAll(const RegistryKey& key) {
  for (const auto& [name, value] : key.Values)
    ReadRegistryValue(key, name);
  for (const auto& [name, subkey] : key.Subkeys)
    ReadAll(*subkey);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Registry registry;
  registry.LoadText(BytesOf(data, size));
  ReadAll(*registry.OpenKey({}));
  return 0;
}
