#pragma once
// The record store over one data file (an SQLite database with the tables of its kind).
// Every routine opens the store, works and closes it: no handle outlives a routine.
//
// Statements use the system's small dialect: square-bracket names ("[Length Class]",
// "[F-array]"), "DELETE * FROM [T]", "SELECT Max(T.F) AS tblMax FROM T", names compared
// without regard to case. DataStore translates them to SQLite.
#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace norvo {

// A field value: null, whole number, real number or text. Dates are text "YYYY-MM-DD".
using FieldValue = std::variant<std::monostate, int64_t, double, std::string>;

inline bool IsNull(const FieldValue& v) {
    return std::holds_alternative<std::monostate>(v);
}
// Numeric value of a field (null gives 0; text is parsed; bad text is a ConversionFault).
double AsDouble(const FieldValue& v);
int64_t AsInteger(const FieldValue& v);
float AsFloat(const FieldValue& v);
// Text of a field (null gives "").
std::string AsText(const FieldValue& v);

// The declared width of a field, as the schemas fix it.
enum class FieldType { Int16, Int32, Float32, Float64, Date, Text };

// What a store was being used for when it failed.
enum class StoreAccess { Read, Save };

// Failure to open, read or write a store: missing file, not a store, wrong or hostile schema, a
// write refused. It knows whether a save was under way, so that the user can be told that the
// file was not saved rather than that it is damaged.
class StoreError : public std::runtime_error {
  public:
    // A failure to save when raised while a StoreSaving stands on this thread, else to read.
    explicit StoreError(const std::string& what);
    StoreError(const std::string& what, StoreAccess access)
        : std::runtime_error(what), access_(access) {}
    StoreAccess access() const { return access_; }

  private:
    StoreAccess access_;
};

// Marks the store errors raised on this thread while it stands as failures to save. Every
// routine that writes to a store holds one, so a save that fails while reading (a file that
// vanished, a work copy that cannot be opened) still reads as a failed save.
class StoreSaving {
  public:
    StoreSaving();
    ~StoreSaving();
    StoreSaving(const StoreSaving&) = delete;
    StoreSaving& operator=(const StoreSaving&) = delete;
};

class DataStore;

// Translates a statement of the system's dialect to SQLite: "[Name]" becomes a quoted name,
// double-quoted text becomes a string literal, "DELETE * FROM" loses its star.
std::string TranslateDialect(const std::string& statement);

// A record set: the rows of one SELECT (or table), with a cursor. Changes are written through
// at update(). Rows are held in memory; the files are small.
class Records {
  public:
    ~Records();
    Records(Records&&) noexcept;
    Records& operator=(Records&&) noexcept;

    void addNew();  // begin a new record (fields null)
    void edit();    // begin editing the current record
    void update();  // write the new or edited record
    void moveFirst();
    void moveLast();
    void moveNext();
    bool endOfRecords() const;
    int32_t recordCount() const;
    // Positions on the first record matching criteria such as "[SampleNo]= 3" or
    // "SampleNo = 3 AND MidLength = 10.5"; noMatch() tells whether none was found.
    void findFirst(const std::string& criteria);
    bool noMatch() const;
    FieldValue getField(const std::string& name) const;
    void setField(const std::string& name, const FieldValue& value);
    std::vector<std::string> fieldNames() const;
    void close();

  private:
    friend class DataStore;
    struct Impl;
    explicit Records(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> impl_;
};

class DataStore {
  public:
    // Opens an existing store (defensive mode, untrusted schema). Throws StoreError when the
    // file is missing, is not a store, or its schema holds triggers, views or foreign tables.
    static DataStore open(const std::string& path);
    ~DataStore();
    DataStore(DataStore&&) noexcept;
    DataStore& operator=(DataStore&&) noexcept;

    void execute(const std::string& statement);
    // A SELECT statement, or a bare table name.
    Records openRecords(const std::string& statementOrTable);
    // Groups writes so that a save is all or nothing.
    void beginTransaction();
    void commit();
    void rollback();
    void close();
    const std::string& path() const;
    // The declared type of a field of a table (by the kind's schema), if known.
    std::optional<FieldType> fieldType(const std::string& table, const std::string& field) const;

  private:
    struct Impl;
    explicit DataStore(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> impl_;
    friend class Records;
};

}  // namespace norvo
