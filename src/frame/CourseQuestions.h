// Questions and refusals that several screens have in common.
#pragma once

// Whether the open course is the pseudo-course of all modules, which has no documents and no survey; a
// message says so then.
bool RefusedInAllModules();

// Asks whether the course is to be left. True for yes.
bool ConfirmLeaving();
