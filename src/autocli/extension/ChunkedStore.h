#ifndef TINDRA_SRC_AUTOCLI_EXTENSION_CHUNKEDSTORE_H
#define TINDRA_SRC_AUTOCLI_EXTENSION_CHUNKEDSTORE_H

#include <cstddef>
#include <vector>

namespace Tindra {
namespace AutoCli {

// Objects made one at a time that never move, so they can point at each other; allocated in
// chunks because a document has thousands of them.
template <typename T>
class ChunkedStore {
public:
    // A new object, made only now: a chunk reserves room without making objects in it.
    T& Add() {
        if (chunks.empty() || chunks.back().size() == kChunkSize) {
            chunks.emplace_back();
            chunks.back().reserve(kChunkSize);
        }
        return chunks.back().emplace_back();
    }

private:
    static constexpr size_t kChunkSize = 256;
    std::vector<std::vector<T>> chunks;  // never grown past their reserve, so nothing moves
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
