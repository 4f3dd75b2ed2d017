#ifndef TINDRA_EXPORT_H
#define TINDRA_EXPORT_H

// libtindra is built with hidden visibility: only what carries this mark is visible to the
// tool and to plug-ins. Classes carry it whole, so their type information is shared across
// the library boundary and exceptions and dynamic casts work there.
#define TINDRA_EXPORT __attribute__((visibility("default")))

#endif
