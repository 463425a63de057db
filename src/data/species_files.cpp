#include "data/species_files.h"

#include <functional>

#include "data/data_store.h"
#include "data/store_routines.h"

namespace norvo {

namespace {

template <class T>
ReadResult<T> ReadFile(const std::string& path, const std::function<void(DataStore&, T&)>& body) {
    T out;
    out.path = path;
    try {
        DataStore store = DataStore::open(path);
        body(store, out);
        store.close();
        return out;
    } catch (const std::exception&) {
        return InvalidDataError(path);
    }
}

// The one header record, or a read error when the table is empty.
Records HeaderRecord(DataStore& store) {
    Records h = store.openRecords("SELECT * FROM [Header]");
    if (h.endOfRecords()) throw StoreError("no header record");
    return h;
}

void AddMember(Records& rs, const char* nameField, const ScenarioMember& m) {
    rs.addNew();
    rs.setField(nameField, m.name);
    rs.setField("Filename", m.filename);
    rs.update();
}

std::string Where(const std::string& fleet, const std::string& species, bool speciesFirst) {
    const std::string f = "[Fleet]=" + QuoteText(fleet), s = "[Species]=" + QuoteText(species);
    return " WHERE " + (speciesFirst ? s + " AND " + f : f + " AND " + s);
}

}  // namespace

ReadResult<SpeciesData> ReadSpeciesFile(const std::string& path) {
    return ReadFile<SpeciesData>(path, [](DataStore& store, SpeciesData& d) {
        Records h = HeaderRecord(store);
        SpeciesHeader& x = d.header;
        x.speciesName = AsText(h.getField("Species Name"));
        x.remarks = AsText(h.getField("Remarks"));
        x.lowerLimit = AsDouble(h.getField("Lower Limit"));
        x.classSize = AsDouble(h.getField("Class Size"));
        x.noGroups = static_cast<int>(AsInteger(h.getField("NoGroups")));
        x.recruit = AsDouble(h.getField("Recruit"));
        x.a = AsDouble(h.getField("a"));
        x.b = AsDouble(h.getField("b"));
        x.m = AsDouble(h.getField("M"));
        x.ft = AsDouble(h.getField("Ft"));
        x.loo = AsDouble(h.getField("Loo"));
        x.k = AsDouble(h.getField("K"));
        size_t i = 0;
        for (Records f = store.openRecords("SELECT * FROM [F-array]"); !f.endOfRecords();
             f.moveNext(), ++i) {
            if (i == d.classes.size()) d.classes.emplace_back();
            d.classes[i].lengthClass = AsDouble(f.getField("Length Class"));
            d.classes[i].f = AsDouble(f.getField("F"));
        }
        i = 0;
        for (Records v = store.openRecords("SELECT * FROM [Value]"); !v.endOfRecords();
             v.moveNext(), ++i) {
            if (i == d.classes.size()) {
                d.classes.emplace_back();
                d.classes[i].lengthClass = AsDouble(v.getField("Length Class"));
            }
            d.classes[i].value = AsDouble(v.getField("Value"));
        }
    });
}

void WriteSpeciesFile(const std::string& path, const SpeciesData& d) {
    SaveInTransaction(path, [&d](DataStore& store) {
        store.execute("DELETE * FROM [Header]");
        store.execute("DELETE * FROM [F-array]");
        store.execute("DELETE * FROM [Value]");
        const SpeciesHeader& x = d.header;
        Records h = store.openRecords("SELECT * FROM [Header]");
        h.addNew();
        h.setField("Species Name", x.speciesName);
        h.setField("Remarks", x.remarks);
        h.setField("Lower Limit", x.lowerLimit);
        h.setField("Class Size", x.classSize);
        h.setField("NoGroups", static_cast<int64_t>(x.noGroups));
        h.setField("Recruit", x.recruit);
        h.setField("a", x.a);
        h.setField("b", x.b);
        h.setField("M", x.m);
        h.setField("Ft", x.ft);
        h.setField("Loo", x.loo);
        h.setField("K", x.k);
        h.update();
        Records f = store.openRecords("SELECT * FROM [F-array]");
        Records v = store.openRecords("SELECT * FROM [Value]");
        for (const SpeciesClass& c : d.classes) {
            f.addNew();
            f.setField("Length Class", c.lengthClass);
            f.setField("F", c.f);
            f.update();
            v.addNew();
            v.setField("Length Class", c.lengthClass);
            v.setField("Value", c.value);
            v.update();
        }
    });
}

ReadResult<FleetData> ReadFleetFile(const std::string& path) {
    return ReadFile<FleetData>(path, [](DataStore& store, FleetData& d) {
        Records h = HeaderRecord(store);
        d.fleetName = AsText(h.getField("Fleet Name"));
        d.remarks = AsText(h.getField("Remarks"));
    });
}

void WriteFleetFile(const std::string& path, const FleetData& d) {
    SaveInTransaction(path, [&d](DataStore& store) {
        store.execute("DELETE * FROM [Header]");
        Records h = store.openRecords("SELECT * FROM [Header]");
        h.addNew();
        h.setField("Fleet Name", d.fleetName);
        h.setField("Remarks", d.remarks);
        h.update();
    });
}

std::string MemberLabel(const ScenarioMember& m) {
    return m.name + " (" + m.filename + ")";
}

std::string MemberKey(const std::string& label) {
    const size_t at = label.find(" (");
    return at == std::string::npos ? label : label.substr(0, at);
}

ReadResult<ScenarioData> ReadScenarioFile(const std::string& path) {
    return ReadFile<ScenarioData>(path, [](DataStore& store, ScenarioData& d) {
        Records h = store.openRecords("SELECT * FROM [Header]");
        if (!h.endOfRecords()) {
            d.title = AsText(h.getField("Title"));
            d.remarks = AsText(h.getField("Remarks"));
        }
        for (Records s = store.openRecords("SELECT * FROM [Species]"); !s.endOfRecords();
             s.moveNext())
            d.species.push_back(
                {AsText(s.getField("Species Name")), AsText(s.getField("Filename"))});
        for (Records f = store.openRecords("SELECT * FROM [Fleet]"); !f.endOfRecords();
             f.moveNext())
            d.fleets.push_back({AsText(f.getField("Fleet Name")), AsText(f.getField("Filename"))});
    });
}

std::string QuoteText(const std::string& text) {
    std::string out = "'";
    for (char c : text) {
        if (c == '\'') out += '\'';
        out += c;
    }
    return out + "'";
}

std::string SelectionQuery(const std::string& fleet, const std::string& species,
                           bool speciesFirst) {
    return "SELECT * FROM [Selection]" + Where(fleet, species, speciesFirst);
}

std::string CatchesQuery(const std::string& fleet, const std::string& species, bool speciesFirst) {
    return "SELECT * FROM [Catches]" + Where(fleet, species, speciesFirst);
}

std::optional<ScenarioSelection> ReadSelection(const std::string& path, const std::string& fleet,
                                               const std::string& species) {
    DataStore store = DataStore::open(path);
    Records rs = store.openRecords(SelectionQuery(fleet, species));
    if (rs.endOfRecords()) return std::nullopt;
    return ScenarioSelection{fleet,
                             species,
                             AsDouble(rs.getField("L50")),
                             AsDouble(rs.getField("L75")),
                             AsDouble(rs.getField("R75")),
                             AsDouble(rs.getField("R50"))};
}

std::vector<CatchRow> ReadCatches(const std::string& path, const std::string& fleet,
                                  const std::string& species) {
    DataStore store = DataStore::open(path);
    std::vector<CatchRow> rows;
    for (Records rs = store.openRecords(CatchesQuery(fleet, species)); !rs.endOfRecords();
         rs.moveNext())
        rows.push_back({AsDouble(rs.getField("Length Group")), AsDouble(rs.getField("Catch"))});
    return rows;
}

Outcome CheckSelection(const ScenarioSelection& r) {
    Outcome o;
    if (!(r.l50 < r.l75))
        o.refuse(kL50NotBelowL75, kSelectionInputTitle);
    else if (!(r.l75 < r.r75))
        o.refuse(kL75NotBelowR75, kSelectionInputTitle);
    else if (!(r.r75 < r.r50))
        o.refuse(kR75NotBelowR50, kSelectionInputTitle);
    return o;
}

void SaveScenarioHeader(const std::string& path, const std::string& title,
                        const std::string& remarks) {
    SaveInTransaction(path, [&](DataStore& store) {
        store.execute("DELETE * FROM [Header]");
        Records h = store.openRecords("SELECT * FROM [Header]");
        h.addNew();
        h.setField("Title", title.empty() ? std::string(kNoTitle) : title);
        h.setField("Remarks", remarks.empty() ? std::string(kNoRemarks) : remarks);
        h.update();
    });
}

void SaveScenarioMembers(const std::string& path, const std::vector<ScenarioMember>& species,
                         const std::vector<ScenarioMember>& fleets) {
    SaveInTransaction(path, [&](DataStore& store) {
        store.execute("DELETE * FROM [Species]");
        store.execute("DELETE * FROM [Fleet]");
        Records s = store.openRecords("SELECT * FROM [Species]");
        for (const auto& m : species) AddMember(s, "Species Name", m);
        Records f = store.openRecords("SELECT * FROM [Fleet]");
        for (const auto& m : fleets) AddMember(f, "Fleet Name", m);
    });
}

Outcome SaveSelection(const std::string& path, const ScenarioSelection& row) {
    Outcome o = CheckSelection(row);
    if (!o.ok()) return o;
    SaveInTransaction(path, [&](DataStore& store) {
        store.execute("DELETE * FROM [Selection]" + Where(row.fleet, row.species, false));
        Records rs = store.openRecords("SELECT * FROM [Selection]");
        rs.addNew();
        rs.setField("Fleet", row.fleet);
        rs.setField("Species", row.species);
        rs.setField("L50", row.l50);
        rs.setField("L75", row.l75);
        rs.setField("R75", row.r75);
        rs.setField("R50", row.r50);
        rs.update();
    });
    return o;
}

void SaveCatches(const std::string& path, const std::string& fleet, const std::string& species,
                 const std::vector<CatchRow>& rows) {
    SaveInTransaction(path, [&](DataStore& store) {
        store.execute("DELETE * FROM [Catches]" + Where(fleet, species, false));
        Records rs = store.openRecords("SELECT * FROM [Catches]");
        for (const CatchRow& r : rows) {
            rs.addNew();
            rs.setField("Fleet", fleet);
            rs.setField("Species", species);
            rs.setField("Length Group", r.lengthGroup);
            rs.setField("Catch", r.catchIndex);
            rs.update();
        }
    });
}

std::string RemoveMemberQuestion(const std::string& name) {
    return "Removing " + name +
           " from the scenario also deletes its selection parameters and catches. Do you want "
           "to continue?";
}

void RemoveScenarioSpecies(const std::string& path, const std::string& name) {
    SaveInTransaction(path, [&](DataStore& store) {
        const std::string key = QuoteText(name);
        store.execute("DELETE * FROM [Species] WHERE [Species Name]=" + key);
        store.execute("DELETE * FROM [Selection] WHERE [Species]=" + key);
        store.execute("DELETE * FROM [Catches] WHERE [Species]=" + key);
    });
}

void RemoveScenarioFleet(const std::string& path, const std::string& name) {
    SaveInTransaction(path, [&](DataStore& store) {
        const std::string key = QuoteText(name);
        store.execute("DELETE * FROM [Fleet] WHERE [Fleet Name]=" + key);
        store.execute("DELETE * FROM [Selection] WHERE [Fleet]=" + key);
        store.execute("DELETE * FROM [Catches] WHERE [Fleet]=" + key);
    });
}

}  // namespace norvo
