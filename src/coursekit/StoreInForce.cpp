#include "coursekit/StoreInForce.h"

#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "platform/files/Paths.h"
#include "platform/registry/Registry.h"

StoreInForce::StoreInForce(const QString& folder) {
  SetProgramFolder(folder);
  problems_ = LoadInstallation({folder + QLatin1String("/registry")});
  SetProgramPaths();
}

StoreInForce::~StoreInForce() {
  LocalMachine().Clear();
  ResetProgramState();
  SetProgramFolder({});
}
