#ifndef TINDRA_SRC_AUTOCLI_PLUGINS_DESCRIPTORPRELOADER_H
#define TINDRA_SRC_AUTOCLI_PLUGINS_DESCRIPTORPRELOADER_H

// Internal: reads the descriptor files of a plug-in directory ahead of their registration.
// Reading (parsing, checking, building the commands) is spread over the processors the process
// may use; registration stays with the caller, in directory order, so the tree, the messages and
// their order are those of reading the files one after another.

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "tindra/autocli/plugins/XmlPlugin.h"

namespace Tindra {
namespace AutoCli {

class DescriptorPreloader {
public:
    explicit DescriptorPreloader(std::vector<std::string> paths);
    ~DescriptorPreloader();
    DescriptorPreloader(DescriptorPreloader const&) = delete;
    DescriptorPreloader& operator=(DescriptorPreloader const&) = delete;

    // The plug-in read from paths[index], once what the XML parser said about it is written to
    // standard error; throws what reading it threw. Each index is taken once, in increasing order.
    std::shared_ptr<XmlPlugin> Take(size_t index);

private:
    struct Slot {
        std::string path;
        std::shared_ptr<XmlPlugin> plugin;
        std::exception_ptr error;
        std::string diagnostics;
        bool ready = false;  // guarded by mutex
    };

    void StartWorkers(size_t count);
    void Work();
    bool ReadNext();
    static void Read(Slot& slot);

    std::vector<Slot> slots;
    std::atomic<size_t> nextUnclaimed{0};
    std::mutex mutex;
    std::condition_variable slotReady;
    std::vector<std::thread> workers;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
