// SPDX-License-Identifier: GPL-3.0-or-later
//
// Runs a module file through its life in a simulated editor and prints what the editor sees.
#include "simulator/LoadedExtension.h"
#include "simulator/ModuleFile.h"
#include "simulator/ProjectHost.h"

#include <cstdio>
#include <exception>
#include <iostream>
#include <stdexcept>

namespace {

using namespace wybeta::simulator;

Steinberg::PClassInfo2 readClassRecord(Steinberg::IPluginFactory& factory) {
    Steinberg::FUnknownPtr<Steinberg::IPluginFactory2> factory2(&factory);
    Steinberg::PClassInfo2 record;
    if (!factory2 || factory2->getClassInfo2(0, &record) != Steinberg::kResultOk) {
        throw std::runtime_error("expected the factory to list a class, found none");
    }
    return record;
}

void printClassRecord(const Steinberg::PClassInfo2& record) {
    char id[64] = {};
    Steinberg::FUID(record.cid).toRegistryString(id);
    std::cout << "class        " << record.name << " " << record.version << "\n"
              << "id           " << id << "\n"
              << "category     " << record.category << "\n"
              << "cardinality  " << record.cardinality << "\n"
              << "SDK version  " << record.sdkVersion << "\n";
}

void expect(bool condition, const char* sentence) {
    if (!condition) {
        throw std::runtime_error(std::string("expected that ") + sentence);
    }
    std::cout << "             " << sentence << "\n";
}

void runLifeCycle(Steinberg::IPluginFactory& factory, const SharedState& state) {
    const auto manager = make<ProjectManager>(state);
    manager->documents.push_back(make<Document>(state));
    const auto projectHost = make<ProjectHost>(state, manager);

    const LoadedExtension extension(factory);
    std::cout << "initialize\n";
    extension.base().initialize(static_cast<wybeta::host::IProjectHost*>(projectHost.get()));
    expect(manager->sinks().size() == 1, "the extension hears of project changes");
    extension.notification().documentOpened(manager->documents[0].get());
    expect(manager->documents[0]->sinks().size() == 1, "the extension hears of document storage");
    std::cout << "terminate\n";
    extension.base().terminate();
    expect(manager->sinks().empty() && manager->documents[0]->sinks().empty(),
           "the extension is registered nowhere any more");
}

void run(const char* path) {
    const ModuleFile module(path);
    module.initDll();
    const auto factory = Steinberg::owned(module.getPluginFactory());
    printClassRecord(readClassRecord(*factory));
    const auto state = std::make_shared<HostState>();
    runLifeCycle(*factory, state);
    expect(state->ledger.isBalanced(), "every reference was given back");
    module.exitDll();
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: demo MODULE\n", stderr);
        return 2;
    }
    try {
        run(argv[1]);
        return 0;
    } catch (const std::exception& error) {
        std::cout.flush();
        std::fprintf(stderr, "demo: %s\n", error.what());
        return 1;
    }
}
