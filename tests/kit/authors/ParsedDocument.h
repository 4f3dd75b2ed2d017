// A libxml2 document owned for the reader checks; libxml2's headers come first here, the
// library's after, the other order from XmlReaders.cpp.
#ifndef KIT_AUTHORS_PARSEDDOCUMENT_H
#define KIT_AUTHORS_PARSEDDOCUMENT_H

#include <libxml/tree.h>

#include <memory>
#include <string>

#include <tindra/tindra.h>

using ParsedDocument = std::unique_ptr<xmlDoc, void (*)(xmlDoc*)>;

ParsedDocument Parse(std::string const& text);

#endif
