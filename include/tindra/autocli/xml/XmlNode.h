#ifndef TINDRA_AUTOCLI_XML_XMLNODE_H
#define TINDRA_AUTOCLI_XML_XMLNODE_H

// libxml2's tree node, declared as libxml2 declares it (repeating the typedef is allowed), so
// a plug-in that never reads XML needs no libxml2 headers. Callers of the readers include
// <libxml/tree.h> themselves.
struct _xmlNode;
typedef struct _xmlNode xmlNode;

#endif
