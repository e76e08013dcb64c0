#include <zo/Tessera/SchemaPathConverters.h>

#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Path.h>
#include <zo/Tessera/PathGenerator.h>

namespace zo::Tessera {

namespace {

[[noreturn]] void refuse(const std::string& message) {
    throw ParseException(message, -1, -1, -1, -1);
}

}  // namespace

ToSchemaPathConverter::ToSchemaPathConverter(PathGenerator& gen) : m_gen(gen) {
    m_gen.genObjectProperty(Path::k_meta);
    m_gen.genObjectProperty(Path::k_schema);
}

bool ToSchemaPathConverter::cbObjectProperty(const std::string& key) {
    m_gen.genObjectProperty(Path::k_metaObjectProperty);
    m_gen.genObjectProperty(key);
    return true;
}

bool ToSchemaPathConverter::cbArrayItem(unsigned long) {
    m_gen.genObjectProperty(Path::k_metaArrayItem);
    return true;
}

FromSchemaPathConverter::FromSchemaPathConverter(PathGenerator& gen) : m_gen(gen) {}

// Callers match on the texts, spelling included.
bool FromSchemaPathConverter::cbObjectProperty(const std::string& key) {
    switch (m_state) {
        case stMeta:
        case stSchema:
            if (key != (m_state == stMeta ? Path::k_meta : Path::k_schema)) {
                refuse("Schema path must begin with meta.schema!");
            }
            m_state = m_state == stMeta ? stSchema : stKeyword;
            break;
        case stKeyword:
            if (key == Path::k_metaObjectProperty) {
                m_state = stMemberKey;
            } else if (key == Path::k_metaArrayItem) {
                m_gen.genListItem(Path::k_noIndex);
            } else {
                refuse("\"properties\" or \"items\" expeced!");
            }
            break;
        case stMemberKey:
            m_gen.genObjectProperty(key);
            m_state = stKeyword;
            break;
    }
    return true;
}

bool FromSchemaPathConverter::cbArrayItem(unsigned long) {
    refuse("Schema path may not contain arrays!");
}

}  // namespace zo::Tessera
