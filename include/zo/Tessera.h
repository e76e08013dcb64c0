#ifndef ZO_TESSERA_H
#define ZO_TESSERA_H

/// \file
/// Everything that an application needs to build, read, change, compare and write JSON documents.

#include <zo/DecNumber.h>
#include <zo/Tessera/Array.h>
#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/CallbackParser.h>
#include <zo/Tessera/Dom.h>
#include <zo/Tessera/DomParser.h>
#include <zo/Tessera/EType.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/ElementCreator.h>
#include <zo/Tessera/ElementGetter.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Generator.h>
#include <zo/Tessera/Null.h>
#include <zo/Tessera/NumberText.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/Path.h>
#include <zo/Tessera/PathGenerator.h>
#include <zo/Tessera/PathParser.h>
#include <zo/Tessera/PrintTo.h>
#include <zo/Tessera/SchemaPathConverters.h>
#include <zo/Tessera/TBasicElement.h>
#include <zo/Tessera/TreeAllocator.h>
#include <zo/Tessera/factories.h>
#include <zo/Tessera/readDocument.h>
#include <zo/Tessera/version.h>
#include <zo/Tessera/visit.h>
#include <zo/Tessera/writeDocument.h>

#endif
