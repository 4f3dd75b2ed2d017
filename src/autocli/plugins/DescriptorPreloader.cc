#include "autocli/plugins/DescriptorPreloader.h"

#include <algorithm>
#include <iostream>
#include <system_error>

#include "platform/ProcessorCount.h"
#include "xml/XmlDiagnosticsCapture.h"

namespace Tindra {
namespace AutoCli {

namespace {

// Below this many files a thread costs about what it saves.
size_t const kFilesWorthThreads = 8;
size_t const kMostWorkers = 8;

}  // namespace

DescriptorPreloader::DescriptorPreloader(std::vector<std::string> paths) : slots(paths.size()) {
    for (size_t i = 0; i < paths.size(); ++i) {
        slots[i].path = std::move(paths[i]);
    }
    if (slots.size() >= kFilesWorthThreads) {
        // The caller's thread reads too, between registrations.
        size_t const processors = Platform::UsableProcessorCount();
        StartWorkers(std::min({processors - 1, kMostWorkers, slots.size()}));
    }
}

// Unclaimed files are left unread: the caller stopped wanting them.
DescriptorPreloader::~DescriptorPreloader() {
    nextUnclaimed.store(slots.size());
    for (std::thread& worker : workers) {
        worker.join();
    }
}

void DescriptorPreloader::StartWorkers(size_t count) {
    if (count == 0) {
        return;
    }
    XmlDiagnosticsCapture::PrepareForThreads();
    try {
        for (size_t i = 0; i < count; ++i) {
            workers.emplace_back([this] { Work(); });
        }
    } catch (std::system_error const&) {
        // No more threads to be had: those started and the caller read the rest.
    }
}

void DescriptorPreloader::Work() {
    while (ReadNext()) {
    }
}

// Files are claimed in order, so the one the caller waits for is never behind unclaimed ones.
bool DescriptorPreloader::ReadNext() {
    size_t const index = nextUnclaimed.fetch_add(1);
    if (index >= slots.size()) {
        return false;
    }
    Read(slots[index]);
    {
        std::lock_guard<std::mutex> lock(mutex);
        slots[index].ready = true;
    }
    slotReady.notify_all();
    return true;
}

void DescriptorPreloader::Read(Slot& slot) {
    XmlDiagnosticsCapture diagnostics;
    try {
        auto plugin = XmlPlugin::New(slot.path);
        plugin->Initialize();
        slot.plugin = std::move(plugin);
    } catch (...) {
        slot.error = std::current_exception();
    }
    slot.diagnostics = diagnostics.Take();
}

std::shared_ptr<XmlPlugin> DescriptorPreloader::Take(size_t index) {
    Slot& slot = slots.at(index);
    for (;;) {
        {
            std::unique_lock<std::mutex> lock(mutex);
            if (slot.ready) {
                break;
            }
        }
        if (!ReadNext()) {
            std::unique_lock<std::mutex> lock(mutex);
            slotReady.wait(lock, [&slot] { return slot.ready; });
            break;
        }
    }
    std::cerr << slot.diagnostics << std::flush;
    if (slot.error) {
        std::rethrow_exception(slot.error);
    }
    return std::move(slot.plugin);
}

}  // namespace AutoCli
}  // namespace Tindra
