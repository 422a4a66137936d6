// Puts the screens on the switchboard. Main calls it before anything is shown.
#pragma once

void ConnectScreens();
