#ifndef TINDRA_SRC_XML_CHUNKEDSTORE_H
#define TINDRA_SRC_XML_CHUNKEDSTORE_H

#include <cstddef>
#include <memory>
#include <vector>

namespace Tindra {
namespace AutoCli {

// Objects handed out one at a time that never move, so they can point at each other; made in
// chunks because a document has thousands of them.
template <typename T>
class ChunkedStore {
public:
    // A default-made object of its own.
    T& Add() {
        if (next == end) {
            chunks.push_back(std::make_unique<T[]>(kChunkSize));
            next = chunks.back().get();
            end = next + kChunkSize;
        }
        return *next++;
    }

private:
    static constexpr size_t kChunkSize = 256;
    std::vector<std::unique_ptr<T[]>> chunks;
    T* next = nullptr;  // in the last chunk
    T* end = nullptr;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
