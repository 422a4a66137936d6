// The settings of an installation, text values of the catalogue's root key, and the paths that
// follow from them. Main and the course screen use it.
#pragma once

#include <QString>
#include <QStringList>

// The root key of the catalogue, below the local machine.
inline constexpr const char* kCatalogueRoot = "SOFTWARE\\TLMS\\Tallowmere Manager 1.0";

struct Settings {
  QString DataRoot;  // folder of the learner data, no trailing slash; "data" in the program folder by default
  QString CodePage;  // "windows-1252" by default
  QString Scale;     // a number (FactorOf); empty fits the screens to the display
  bool DisplayWarning = true;  // "0" switches the warning of the display's size off
};

// From LocalMachine(). A relative data root is taken from the program folder.
Settings ReadSettings();

// Loads the registry of the installation and puts its code page in force; registry files in another
// code page than the default are then read anew. Returns one description for each damaged registry
// file and one for an unknown code page, for Main to show.
QStringList LoadInstallation();
QStringList LoadInstallation(const QStringList& registryFolders);

// Sets gAppPath and gDriveRoot.
void SetProgramPaths();
