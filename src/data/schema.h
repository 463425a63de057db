#pragma once
// The tables and fields of every file kind: the one source from which the templates are built,
// against which stores are checked on open, and from which field widths are known.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/data_store.h"

namespace norvo {

struct FieldSchema {
    const char* name;
    FieldType type;
};

struct TableSchema {
    const char* name;
    std::vector<FieldSchema> fields;
};

// The tables of a kind ("LFQ", case ignored), header table first; empty for an unknown kind.
const std::vector<TableSchema>& SchemaOf(std::string_view kindCode);
// A table of a kind, names compared without regard to case.
const TableSchema* FindTable(std::string_view kindCode, std::string_view table);
// A field of a table, names compared without regard to case.
const FieldSchema* FindField(const TableSchema& table, std::string_view field);

// The column type declared in a template for a field width ("SMALLINT", "FLOAT4", ...), and back.
const char* DeclaredType(FieldType type);
std::optional<FieldType> FieldTypeFromDeclared(std::string_view declared);

// The CREATE TABLE statement of a table, with quoted names and declared types.
std::string CreateTableStatement(const TableSchema& table);

// Case-insensitive equality of ASCII names.
bool SameName(std::string_view a, std::string_view b);

}  // namespace norvo
