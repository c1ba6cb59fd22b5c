#pragma once
// What the parts of `canvas store` do. Each prints its answer and gives the exit code.

#include <string>

#include "cli/console.h"
#include "cli/store_nodes.h"

namespace canvas::cli {

/// One command line; each part reads the members that it has options for.
struct StoreOptions {
    std::string store;
    bool json = false;
    std::string module, property, value;
    std::string file;
    bool force = false;
    bool dryRun = false;
    bool marks = false;
    RemoteNode node;
    bool change = false;
    bool byName = false;
};

int newStore(const StoreOptions& options, Console& console);
int showStore(const StoreOptions& options, Console& console);
int setProperty(const StoreOptions& options, Console& console);
int resetModule(const StoreOptions& options, Console& console);
int exportModule(const StoreOptions& options, Console& console);
int importModule(const StoreOptions& options, Console& console);
int listNodes(const StoreOptions& options, Console& console);
int addNode(const StoreOptions& options, Console& console);
int dropNode(const StoreOptions& options, Console& console);
int checkWholeStore(const StoreOptions& options, Console& console);

}  // namespace canvas::cli
