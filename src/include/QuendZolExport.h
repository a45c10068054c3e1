// Marks what hosts may use of the plug-in: the classes that its file exports.
#pragma once

#define QUEND_ZOL_EXPORT __attribute__((visibility("default")))
