// The question before leaving the course, asked by the course screen and the sign-in screens.
#pragma once

// True when the learner wants to leave.
bool ConfirmLeaving();
