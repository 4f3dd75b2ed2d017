#include "xml/TextArena.h"

#include <cstring>

namespace Tindra {
namespace AutoCli {

namespace {

// Chunks are written before they are read, so they are not cleared first.
std::unique_ptr<char[]> NewChunk(size_t size) {
    return std::unique_ptr<char[]>(new char[size]);
}

}  // namespace

char const* TextArena::Copy(char const* text, size_t length) {
    char* copy = Reserve(length + 1);
    std::memcpy(copy, text, length);
    copy[length] = '\0';
    return copy;
}

char const* TextArena::Extend(char const* last, size_t lastLength, char const* more,
                              size_t length) {
    if (last + lastLength + 1 == unused && length <= left) {
        char* end = unused - 1;  // where the zero ending the last copy is
        std::memcpy(end, more, length);
        end[length] = '\0';
        unused += length;
        left -= length;
        return last;
    }
    char* copy = Reserve(lastLength + length + 1);
    std::memcpy(copy, last, lastLength);
    std::memcpy(copy + lastLength, more, length);
    copy[lastLength + length] = '\0';
    return copy;
}

// Room for size characters; a text larger than a chunk gets a chunk of its own.
char* TextArena::Reserve(size_t size) {
    if (size > left) {
        size_t const chunkSize = size > kChunkSize ? size : kChunkSize;
        chunks.push_back(NewChunk(chunkSize));
        unused = chunks.back().get();
        left = chunkSize;
    }
    char* room = unused;
    unused += size;
    left -= size;
    return room;
}

}  // namespace AutoCli
}  // namespace Tindra
