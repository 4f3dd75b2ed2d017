#ifndef OSTREL_PLUGINDIRECTORIES_H
#define OSTREL_PLUGINDIRECTORIES_H

#include "tindra/tindra.h"

namespace Ostrel {

// Loads the standard plug-in directories and, for a program installed under another prefix,
// the plug-in directory of that prefix first. Under the standard prefix this is exactly
// AddDefaultDirectories().
// True when OSTREL_SKIP_DEFAULT_PLUGINS=1 asks for the built-in commands only.
bool DefaultPluginsSkipped();

void AddInstalledPluginDirectories(Tindra::AutoCli::Dispatcher& dispatcher);

}  // namespace Ostrel

#endif
