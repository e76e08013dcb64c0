#ifndef ZO_TESSERA_SCHEMAPATHCONVERTERS_H
#define ZO_TESSERA_SCHEMAPATHCONVERTERS_H

#include <string>

#include <zo/Tessera/PathParser.h>
#include <zo/Tessera/export.h>

namespace zo::Tessera {

class PathGenerator;

/// Writes, while a data path is parsed, the path of the schema node that describes it:
/// `list[3].x` gives `meta.schema.properties.list.items.properties.x`. What has been written when
/// an exception is thrown stays written.
class ZO_TESSERA_EXPORT ToSchemaPathConverter : public PathParserListener {
public:
    /// Writes "meta" and "schema" at once. `gen` must outlive the converter.
    explicit ToSchemaPathConverter(PathGenerator& gen);

    bool cbObjectProperty(const std::string& key) override;
    /// The index itself is dropped: one schema node describes all items.
    bool cbArrayItem(unsigned long index) override;

private:
    PathGenerator& m_gen;
};

/// Writes, while the path of a schema node is parsed, the path of the data that it describes, with
/// "*" for every index: `meta.schema.properties.list.items` gives `list[*]`. What has been written
/// when an exception is thrown stays written.
///
/// The exceptions below are each a `ParseException` without places. Beware: a path that ends too
/// early, such as `meta` or `meta.schema.properties`, gives the data path so far and raises
/// nothing.
class ZO_TESSERA_EXPORT FromSchemaPathConverter : public PathParserListener {
public:
    /// `gen` must outlive the converter.
    explicit FromSchemaPathConverter(PathGenerator& gen);

    /// A path that begins otherwise throws "Schema path must begin with meta.schema!", and another
    /// key where "properties" or "items" must stand "\"properties\" or \"items\" expeced!".
    bool cbObjectProperty(const std::string& key) override;
    /// Throws "Schema path may not contain arrays!".
    bool cbArrayItem(unsigned long index) override;

private:
    /// What must come next in the schema path.
    enum EState { stMeta, stSchema, stKeyword, stMemberKey };

    PathGenerator& m_gen;
    EState m_state = stMeta;
};

}  // namespace zo::Tessera

#endif
