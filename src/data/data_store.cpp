#include "data/data_store.h"

#include <sqlite3.h>

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <filesystem>

#include "base/checked.h"
#include "base/fault.h"
#include "data/file_kind.h"
#include "data/schema.h"

namespace norvo {

namespace {
thread_local int savesUnderWay = 0;
}  // namespace

StoreError::StoreError(const std::string& what)
    : std::runtime_error(what),
      access_(savesUnderWay > 0 ? StoreAccess::Save : StoreAccess::Read) {}

StoreSaving::StoreSaving() {
    ++savesUnderWay;
}
StoreSaving::~StoreSaving() {
    --savesUnderWay;
}

// ---------------------------------------------------------------------------------------------
// Field values

namespace {

std::string Trim(std::string_view s) {
    size_t b = 0, e = s.size();
    while (b < e && std::isspace(static_cast<unsigned char>(s[b]))) ++b;
    while (e > b && std::isspace(static_cast<unsigned char>(s[e - 1]))) --e;
    return std::string(s.substr(b, e - b));
}

double ParseNumber(const std::string& text) {
    const std::string t = Trim(text);
    double v = 0;
    const char* first = t.data();
    const char* last = t.data() + t.size();
    if (!t.empty() && *first == '+') ++first;
    const auto [ptr, ec] = std::from_chars(first, last, v);
    if (t.empty() || ec != std::errc() || ptr != last) throw ConversionFault("DataStore");
    return CheckFinite(v);
}

// Whole number with round half to even; out of the 64-bit range is an overflow.
int64_t RoundToWhole(double x) {
    const double r = std::nearbyint(CheckFinite(x));
    if (r < -9223372036854775808.0 || r >= 9223372036854775808.0) ThrowOverflow();
    return static_cast<int64_t>(r);
}

}  // namespace

double AsDouble(const FieldValue& v) {
    if (IsNull(v)) return 0.0;
    if (const auto* i = std::get_if<int64_t>(&v)) return static_cast<double>(*i);
    if (const auto* d = std::get_if<double>(&v)) return *d;
    return ParseNumber(std::get<std::string>(v));
}

int64_t AsInteger(const FieldValue& v) {
    if (const auto* i = std::get_if<int64_t>(&v)) return *i;
    return RoundToWhole(AsDouble(v));
}

float AsFloat(const FieldValue& v) {
    return R4(AsDouble(v));
}

std::string AsText(const FieldValue& v) {
    if (IsNull(v)) return {};
    if (const auto* i = std::get_if<int64_t>(&v)) return std::to_string(*i);
    if (const auto* d = std::get_if<double>(&v)) {
        char buf[32];
        std::snprintf(buf, sizeof buf, "%.15g", *d);
        return buf;
    }
    return std::get<std::string>(v);
}

// ---------------------------------------------------------------------------------------------
// Dialect

namespace {

// Reads a statement's leading tokens: words, single symbols and names, skipping blanks.
struct Scanner {
    const std::string& text;
    size_t pos = 0;

    static bool IsNameChar(char c) {
        return std::isalnum(static_cast<unsigned char>(c)) || c == '_';
    }
    void blanks() {
        while (pos < text.size() && std::isspace(static_cast<unsigned char>(text[pos]))) ++pos;
    }
    // A keyword, case ignored, not followed by more name characters.
    bool word(std::string_view w) {
        blanks();
        if (text.size() - pos < w.size()) return false;
        for (size_t i = 0; i < w.size(); ++i) {
            if (std::toupper(static_cast<unsigned char>(text[pos + i])) != w[i]) return false;
        }
        if (pos + w.size() < text.size() && IsNameChar(text[pos + w.size()])) return false;
        pos += w.size();
        return true;
    }
    bool symbol(char c) {
        blanks();
        if (pos >= text.size() || text[pos] != c) return false;
        ++pos;
        return true;
    }
    // A quoted name ("a ""b""") or a plain one; its text as written, or empty.
    std::string name() {
        blanks();
        const size_t start = pos;
        if (pos < text.size() && text[pos] == '"') {
            for (++pos; pos < text.size(); ++pos) {
                if (text[pos] != '"') continue;
                if (pos + 1 < text.size() && text[pos + 1] == '"') {
                    ++pos;
                    continue;
                }
                return text.substr(start, ++pos - start);
            }
            pos = start;
            return {};
        }
        if (pos < text.size() &&
            (std::isalpha(static_cast<unsigned char>(text[pos])) || text[pos] == '_')) {
            while (pos < text.size() && IsNameChar(text[pos])) ++pos;
        }
        return text.substr(start, pos - start);
    }
};

}  // namespace

std::string TranslateDialect(const std::string& statement) {
    std::string out;
    out.reserve(statement.size() + 8);
    const size_t n = statement.size();
    for (size_t i = 0; i < n; ++i) {
        const char c = statement[i];
        if (c == '\'') {  // string literal, copied as it stands
            out += c;
            for (++i; i < n; ++i) {
                out += statement[i];
                if (statement[i] == '\'') {
                    if (i + 1 < n && statement[i + 1] == '\'') {
                        out += statement[++i];
                    } else {
                        break;
                    }
                }
            }
        } else if (c == '"') {  // the dialect's double-quoted text is a string literal
            out += '\'';
            for (++i; i < n; ++i) {
                if (statement[i] == '"') {
                    if (i + 1 < n && statement[i + 1] == '"') {
                        out += '"';
                        ++i;
                        continue;
                    }
                    break;
                }
                if (statement[i] == '\'') out += '\'';
                out += statement[i];
            }
            out += '\'';
        } else if (c == '[') {  // bracketed name
            out += '"';
            for (++i; i < n && statement[i] != ']'; ++i) {
                if (statement[i] == '"') out += '"';
                out += statement[i];
            }
            out += '"';
        } else {
            out += c;
        }
    }
    // "DELETE * FROM" -> "DELETE FROM".
    Scanner sc{out};
    if (sc.word("DELETE") && sc.symbol('*') && sc.word("FROM")) {
        return "DELETE FROM" + out.substr(sc.pos);
    }
    return out;
}

// ---------------------------------------------------------------------------------------------
// Connection and statements

namespace {

inline constexpr const char* kNoCurrentRecord = "No current record.";
inline constexpr const char* kItemNotFound = "Item not found in this collection.";
inline constexpr const char* kNotEditing = "Update or CancelUpdate without AddNew or Edit.";
inline constexpr const char* kReadOnly = "Cannot update. Database or object is read-only.";
inline constexpr const char* kClosed = "Object invalid or no longer set.";

struct Connection {
    sqlite3* db = nullptr;
    std::string path;
    std::string kind;  // the kind's code, or empty for an unknown extension
    bool inTransaction = false;

    ~Connection() { close(); }
    void close() {
        if (!db) return;
        if (inTransaction) sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
        inTransaction = false;
        sqlite3_close_v2(db);
        db = nullptr;
    }
    sqlite3* handle() const {
        if (!db) throw StoreError(kClosed);
        return db;
    }
    [[noreturn]] void fail(const std::string& what) const {
        throw StoreError(what + ": " + (db ? sqlite3_errmsg(db) : "closed") + " (" + path + ")");
    }
};

// A prepared statement, finalized on scope exit.
class Statement {
  public:
    Statement(const Connection& conn, const std::string& sql) : conn_(conn) {
        const char* tail = nullptr;
        if (sqlite3_prepare_v2(conn.handle(), sql.c_str(), static_cast<int>(sql.size()), &stmt_,
                               &tail) != SQLITE_OK) {
            conn.fail("Cannot run \"" + sql + "\"");
        }
        // A single statement only: the rest may hold blanks and semicolons, nothing else.
        for (; tail && *tail; ++tail) {
            if (*tail != ';' && !std::isspace(static_cast<unsigned char>(*tail))) {
                sqlite3_finalize(stmt_);
                throw StoreError("More than one statement in \"" + sql + "\"");
            }
        }
        if (!stmt_) throw StoreError("Empty statement");
    }
    ~Statement() { sqlite3_finalize(stmt_); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    sqlite3_stmt* get() const { return stmt_; }
    // True for a row, false when done.
    bool step() {
        const int rc = sqlite3_step(stmt_);
        if (rc == SQLITE_ROW) return true;
        if (rc == SQLITE_DONE) return false;
        conn_.fail("Cannot read or write the store");
    }
    void run() {
        while (step()) {
        }
    }
    void reset() {
        sqlite3_reset(stmt_);
        sqlite3_clear_bindings(stmt_);
    }
    void bind(int index, const FieldValue& v) {
        int rc = SQLITE_OK;
        if (IsNull(v)) {
            rc = sqlite3_bind_null(stmt_, index);
        } else if (const auto* i = std::get_if<int64_t>(&v)) {
            rc = sqlite3_bind_int64(stmt_, index, *i);
        } else if (const auto* d = std::get_if<double>(&v)) {
            rc = sqlite3_bind_double(stmt_, index, *d);
        } else {
            const auto& s = std::get<std::string>(v);
            rc = sqlite3_bind_text(stmt_, index, s.data(), static_cast<int>(s.size()),
                                   SQLITE_TRANSIENT);
        }
        if (rc != SQLITE_OK) conn_.fail("Cannot bind a value");
    }
    FieldValue column(int i) const {
        switch (sqlite3_column_type(stmt_, i)) {
            case SQLITE_NULL:
                return {};
            case SQLITE_INTEGER:
                return static_cast<int64_t>(sqlite3_column_int64(stmt_, i));
            case SQLITE_FLOAT:
                return sqlite3_column_double(stmt_, i);
            default: {
                const auto* p = reinterpret_cast<const char*>(sqlite3_column_text(stmt_, i));
                return std::string(p ? p : "", static_cast<size_t>(sqlite3_column_bytes(stmt_, i)));
            }
        }
    }

  private:
    const Connection& conn_;
    sqlite3_stmt* stmt_ = nullptr;
};

std::string Quote(std::string_view name) {
    std::string out = "\"";
    for (char c : name) {
        if (c == '"') out += '"';
        out += c;
    }
    return out + "\"";
}

std::string UnquoteName(const std::string& s) {
    if (s.size() >= 2 && s.front() == '"' && s.back() == '"') {
        std::string out;
        for (size_t i = 1; i + 1 < s.size(); ++i) {
            out += s[i];
            if (s[i] == '"' && i + 2 < s.size() && s[i + 1] == '"') ++i;
        }
        return out;
    }
    return s;
}

// True when the text begins with the word (not merely with its letters, as "Selection" does).
bool StartsWithWord(const std::string& s, std::string_view word) {
    const std::string t = Trim(s);
    if (t.size() < word.size() || !SameName(std::string_view(t).substr(0, word.size()), word)) {
        return false;
    }
    if (t.size() == word.size()) return true;
    const unsigned char next = static_cast<unsigned char>(t[word.size()]);
    return !std::isalnum(next) && next != '_' && next != '-';
}

// The tables a store of this kind may hold: its own, or any kind's when the kind is unknown.
bool TableAllowed(const std::string& kind, const std::string& table) {
    if (!kind.empty()) return FindTable(kind, table) != nullptr;
    for (const auto& k : FileKinds()) {
        if (FindTable(k.code, table)) return true;
    }
    return false;
}

void Configure(Connection& c) {
    sqlite3* db = c.db;
    sqlite3_extended_result_codes(db, 1);
    sqlite3_busy_timeout(db, 2000);
    // A data file comes from other people: no schema code runs, nothing writes the schema.
    sqlite3_db_config(db, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    // Double quotes are names only, so a misspelt name fails instead of reading as text.
    sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    // Commits are not flushed to disk one by one: a record-by-record writer would take seconds
    // for a few hundred rows. The journal still makes each write all or nothing should the
    // process die; the atomic saves flush their work copy once before it replaces the file.
    for (const char* pragma :
         {"PRAGMA trusted_schema=OFF", "PRAGMA cell_size_check=ON", "PRAGMA synchronous=OFF"}) {
        if (sqlite3_exec(db, pragma, nullptr, nullptr, nullptr) != SQLITE_OK) {
            c.fail("Cannot configure the store");
        }
    }
}

// Refuses a store whose schema holds anything but the kind's tables, or whose pages are damaged.
void CheckSchema(const Connection& c) {
    Statement s(c, "SELECT type, name, tbl_name, sql FROM sqlite_master");
    while (s.step()) {
        const std::string type = AsText(s.column(0));
        const std::string name = AsText(s.column(1));
        const std::string table = AsText(s.column(2));
        const std::string sql = AsText(s.column(3));
        if (type == "table") {
            if (name.rfind("sqlite_", 0) == 0) continue;
            if (!StartsWithWord(sql, "CREATE TABLE")) {
                throw StoreError("Unexpected kind of table " + name + " in " + c.path);
            }
            if (!TableAllowed(c.kind, name)) {
                throw StoreError("Table " + name + " does not belong in " + c.path);
            }
        } else if (type == "index") {
            if (!TableAllowed(c.kind, table)) {
                throw StoreError("Index on foreign table " + table + " in " + c.path);
            }
        } else {
            throw StoreError("The store " + c.path + " holds a " + type + " (" + name + ")");
        }
    }
    Statement check(c, "PRAGMA quick_check");
    while (check.step()) {
        if (AsText(check.column(0)) != "ok") throw StoreError("Damaged store " + c.path);
    }
}

// Converts a value to the width of its field; out of range is an overflow, as the integer and
// single-precision stores of the old platform did.
FieldValue Coerce(const FieldValue& v, std::optional<FieldType> type) {
    if (IsNull(v) || !type) return v;
    switch (*type) {
        case FieldType::Int16:
        case FieldType::Int32: {
            const int64_t x = AsInteger(v);
            const int64_t lo = *type == FieldType::Int16 ? -32768 : -2147483648LL;
            const int64_t hi = *type == FieldType::Int16 ? 32767 : 2147483647LL;
            if (x < lo || x > hi) ThrowOverflow();
            return x;
        }
        case FieldType::Float32:
            return static_cast<double>(R4(AsDouble(v)));
        case FieldType::Float64:
            return CheckFinite(AsDouble(v));
        case FieldType::Date:
        case FieldType::Text:
            return AsText(v);
    }
    return v;
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// Records

struct Records::Impl {
    std::shared_ptr<Connection> conn;
    std::string table;  // base table when the set can be written, else empty
    std::vector<std::string> names;
    std::vector<std::optional<FieldType>> types;
    struct Row {
        int64_t rowid = 0;
        std::vector<FieldValue> values;
    };
    std::vector<Row> rows;
    size_t pos = 0;
    enum class Mode { None, Adding, Editing } mode = Mode::None;
    std::vector<FieldValue> pending;
    std::vector<bool> changed;
    bool noMatch = false;

    size_t indexOf(const std::string& name) const {
        for (size_t i = 0; i < names.size(); ++i) {
            if (SameName(names[i], name)) return i;
        }
        throw StoreError(std::string(kItemNotFound) + " (" + name + ")");
    }
    Connection& connection() const {
        if (!conn || !conn->db) throw StoreError(kClosed);
        return *conn;
    }
};

Records::Records(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
Records::~Records() = default;
Records::Records(Records&&) noexcept = default;
Records& Records::operator=(Records&&) noexcept = default;

void Records::addNew() {
    const StoreSaving saving;
    if (impl_->table.empty()) throw StoreError(kReadOnly);
    impl_->connection();
    impl_->mode = Impl::Mode::Adding;
    impl_->pending.assign(impl_->names.size(), FieldValue{});
    impl_->changed.assign(impl_->names.size(), false);
}

void Records::edit() {
    const StoreSaving saving;
    if (impl_->table.empty()) throw StoreError(kReadOnly);
    if (endOfRecords()) throw StoreError(kNoCurrentRecord);
    impl_->connection();
    impl_->mode = Impl::Mode::Editing;
    impl_->pending = impl_->rows[impl_->pos].values;
    impl_->changed.assign(impl_->names.size(), false);
}

void Records::update() {
    const StoreSaving saving;
    auto& m = *impl_;
    if (m.mode == Impl::Mode::None) throw StoreError(kNotEditing);
    Connection& c = m.connection();
    std::vector<size_t> cols;
    for (size_t i = 0; i < m.changed.size(); ++i) {
        if (m.changed[i]) cols.push_back(i);
    }
    if (m.mode == Impl::Mode::Adding) {
        std::string sql = "INSERT INTO " + Quote(m.table);
        if (cols.empty()) {
            sql += " DEFAULT VALUES";
        } else {
            std::string names, marks;
            for (size_t k = 0; k < cols.size(); ++k) {
                names += (k ? ", " : "") + Quote(m.names[cols[k]]);
                marks += k ? ", ?" : "?";
            }
            sql += " (" + names + ") VALUES (" + marks + ")";
        }
        Statement s(c, sql);
        for (size_t k = 0; k < cols.size(); ++k)
            s.bind(static_cast<int>(k + 1), m.pending[cols[k]]);
        s.run();
        const bool atEnd = m.pos >= m.rows.size();
        m.rows.push_back({sqlite3_last_insert_rowid(c.db), m.pending});
        if (atEnd) m.pos = m.rows.size();  // a new record leaves the cursor where it was
    } else if (!cols.empty()) {
        std::string sql = "UPDATE " + Quote(m.table) + " SET ";
        for (size_t k = 0; k < cols.size(); ++k) {
            sql += (k ? ", " : "") + Quote(m.names[cols[k]]) + " = ?";
        }
        sql += " WHERE rowid = ?";
        Statement s(c, sql);
        for (size_t k = 0; k < cols.size(); ++k)
            s.bind(static_cast<int>(k + 1), m.pending[cols[k]]);
        s.bind(static_cast<int>(cols.size() + 1), m.rows[m.pos].rowid);
        s.run();
        m.rows[m.pos].values = m.pending;
    }
    m.mode = Impl::Mode::None;
}

void Records::moveFirst() {
    impl_->mode = Impl::Mode::None;
    impl_->pos = 0;
}

void Records::moveLast() {
    impl_->mode = Impl::Mode::None;
    impl_->pos = impl_->rows.empty() ? 0 : impl_->rows.size() - 1;
}

void Records::moveNext() {
    if (endOfRecords()) throw StoreError(kNoCurrentRecord);
    impl_->mode = Impl::Mode::None;
    ++impl_->pos;
}

bool Records::endOfRecords() const {
    return impl_->pos >= impl_->rows.size();
}

int32_t Records::recordCount() const {
    return static_cast<int32_t>(impl_->rows.size());
}

void Records::findFirst(const std::string& criteria) {
    auto& m = *impl_;
    m.mode = Impl::Mode::None;
    m.noMatch = true;
    if (m.rows.empty()) return;
    // Each row in turn is offered, with its field names, to the criteria.
    std::string sql = "SELECT 1 FROM (SELECT ";
    for (size_t i = 0; i < m.names.size(); ++i) {
        sql += (i ? ", ?" : "?") + std::to_string(i + 1) + " AS " + Quote(m.names[i]);
    }
    sql += ")";
    if (!m.table.empty()) sql += " AS " + Quote(m.table);
    sql += " WHERE (" + TranslateDialect(criteria) + ")";
    Statement s(m.connection(), sql);
    for (size_t r = 0; r < m.rows.size(); ++r) {
        s.reset();
        for (size_t i = 0; i < m.names.size(); ++i) {
            s.bind(static_cast<int>(i + 1), m.rows[r].values[i]);
        }
        if (s.step()) {
            m.pos = r;
            m.noMatch = false;
            return;
        }
    }
}

bool Records::noMatch() const {
    return impl_->noMatch;
}

FieldValue Records::getField(const std::string& name) const {
    const auto& m = *impl_;
    const size_t i = m.indexOf(name);
    if (m.mode != Impl::Mode::None) return m.pending[i];
    if (endOfRecords()) throw StoreError(kNoCurrentRecord);
    return m.rows[m.pos].values[i];
}

void Records::setField(const std::string& name, const FieldValue& value) {
    const StoreSaving saving;
    auto& m = *impl_;
    const size_t i = m.indexOf(name);
    if (m.mode == Impl::Mode::None) throw StoreError(kNotEditing);
    m.pending[i] = Coerce(value, m.types[i]);
    m.changed[i] = true;
}

std::vector<std::string> Records::fieldNames() const {
    return impl_->names;
}

void Records::close() {
    impl_->conn.reset();
    impl_->rows.clear();
    impl_->pos = 0;
    impl_->mode = Impl::Mode::None;
}

// ---------------------------------------------------------------------------------------------
// DataStore

struct DataStore::Impl {
    std::shared_ptr<Connection> conn;

    Connection& connection() const {
        if (!conn || !conn->db) throw StoreError(kClosed);
        return *conn;
    }
};

DataStore::DataStore(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
DataStore::~DataStore() {
    close();
}
DataStore::DataStore(DataStore&&) noexcept = default;
DataStore& DataStore::operator=(DataStore&& other) noexcept {
    if (this != &other) {
        close();
        impl_ = std::move(other.impl_);
    }
    return *this;
}

DataStore DataStore::open(const std::string& path) {
    std::error_code ec;
    if (!std::filesystem::is_regular_file(path, ec)) {
        throw StoreError("No such data file: " + path);
    }
    auto conn = std::make_shared<Connection>();
    conn->path = path;
    if (const FileKind* k = KindOfFile(path)) conn->kind = k->code;
    const int rc = sqlite3_open_v2(path.c_str(), &conn->db, SQLITE_OPEN_READWRITE, nullptr);
    if (rc != SQLITE_OK) conn->fail("Cannot open the store");
    Configure(*conn);
    CheckSchema(*conn);
    auto impl = std::make_unique<Impl>();
    impl->conn = std::move(conn);
    return DataStore(std::move(impl));
}

void DataStore::execute(const std::string& statement) {
    const StoreSaving saving;
    Connection& c = impl_->connection();
    Statement s(c, TranslateDialect(statement));
    s.run();
}

Records DataStore::openRecords(const std::string& statementOrTable) {
    Connection& c = impl_->connection();
    std::string sql;
    if (StartsWithWord(statementOrTable, "SELECT")) {
        sql = TranslateDialect(statementOrTable);
    } else {
        std::string name = Trim(statementOrTable);
        if (name.size() >= 2 && name.front() == '[' && name.back() == ']') {
            name = name.substr(1, name.size() - 2);
        }
        sql = "SELECT * FROM " + Quote(name);
    }

    auto impl = std::make_unique<Records::Impl>();
    impl->conn = impl_->conn;
    // "SELECT * FROM <table> ..." can be written back: fetch the rowid with each row.
    std::unique_ptr<Statement> stmt;
    bool withRowid = false;
    Scanner sc{sql};
    std::string table;
    if (sc.word("SELECT") && sc.symbol('*') && sc.word("FROM") && !(table = sc.name()).empty()) {
        try {
            stmt = std::make_unique<Statement>(
                c, "SELECT rowid, * FROM " + table + sql.substr(sc.pos));
            impl->table = UnquoteName(table);
            withRowid = true;
        } catch (const StoreError&) {
            stmt.reset();  // no rowid (or not a plain table): read only
        }
    }
    if (!stmt) stmt = std::make_unique<Statement>(c, sql);

    sqlite3_stmt* st = stmt->get();
    const int first = withRowid ? 1 : 0;
    const int n = sqlite3_column_count(st);
    const TableSchema* tableSchema = impl->table.empty() ? nullptr : FindTable(c.kind, impl->table);
    for (int i = first; i < n; ++i) {
        const char* name = sqlite3_column_name(st, i);
        impl->names.emplace_back(name ? name : "");
        std::optional<FieldType> type;
        if (tableSchema) {
            if (const FieldSchema* f = FindField(*tableSchema, impl->names.back())) type = f->type;
        }
        if (!type) {
            if (const char* decl = sqlite3_column_decltype(st, i))
                type = FieldTypeFromDeclared(decl);
        }
        impl->types.push_back(type);
    }
    while (stmt->step()) {
        Records::Impl::Row row;
        if (withRowid) row.rowid = sqlite3_column_int64(st, 0);
        row.values.reserve(static_cast<size_t>(n - first));
        for (int i = first; i < n; ++i) row.values.push_back(stmt->column(i));
        impl->rows.push_back(std::move(row));
    }
    return Records(std::move(impl));
}

void DataStore::beginTransaction() {
    const StoreSaving saving;
    Connection& c = impl_->connection();
    if (c.inTransaction) throw StoreError("A transaction is already open on " + c.path);
    Statement(c, "BEGIN IMMEDIATE").run();
    c.inTransaction = true;
}

void DataStore::commit() {
    const StoreSaving saving;
    Connection& c = impl_->connection();
    if (!c.inTransaction) throw StoreError("No transaction is open on " + c.path);
    Statement(c, "COMMIT").run();
    c.inTransaction = false;
}

void DataStore::rollback() {
    const StoreSaving saving;
    Connection& c = impl_->connection();
    if (!c.inTransaction) return;
    c.inTransaction = false;
    if (sqlite3_exec(c.db, "ROLLBACK", nullptr, nullptr, nullptr) != SQLITE_OK) {
        c.fail("Cannot roll back");
    }
}

void DataStore::close() {
    if (impl_ && impl_->conn) impl_->conn->close();
    if (impl_) impl_->conn.reset();
}

const std::string& DataStore::path() const {
    static const std::string none;
    return impl_ && impl_->conn ? impl_->conn->path : none;
}

std::optional<FieldType> DataStore::fieldType(const std::string& table,
                                              const std::string& field) const {
    const Connection& c = impl_->connection();
    if (const TableSchema* t = FindTable(c.kind, table)) {
        if (const FieldSchema* f = FindField(*t, field)) return f->type;
    }
    Statement s(c, "SELECT name, type FROM pragma_table_info(?1)");
    s.bind(1, table);
    while (s.step()) {
        if (SameName(AsText(s.column(0)), field)) return FieldTypeFromDeclared(AsText(s.column(1)));
    }
    return std::nullopt;
}

}  // namespace norvo
