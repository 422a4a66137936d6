// The look of the few controls that the skin's pictures don't draw: message boxes, lists, scroll bars.
#pragma once

class QApplication;

void ApplyLook(QApplication& application);
