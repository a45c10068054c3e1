// Keeping the header variables, and changing them as steps of the journal.
#include "HeaderVariables.h"

#include <cstdlib>

namespace oddb
{

namespace
{

/// One variable gets other values; a variable that had none before is taken out again.
class VariableChange : public JournalChange
{
public:
    VariableChange(std::string name, Groups other) : m_name(std::move(name)), m_other(std::move(other)) {}

    void replay(OdDbDatabase& database, bool) override
    {
        HeaderVariables& variables = HeaderVariables::of(database.impl());
        Groups present;
        for (const HeaderVariable& variable : variables.all())
            if (variable.name == m_name)
                present = variable.values;
        if (m_other.empty())
            variables.remove(m_name);
        else
            variables.put(m_name, m_other);
        m_other = present;
    }

private:
    std::string m_name;
    Groups m_other;
};

void appendPoint(GroupsBuilder& builder, const HeaderRow& row)
{
    const int coordinates = row.kind == DxfKind::Point2d ? 2 : 3;
    const char* text = row.text;
    for (int i = 0; i < coordinates; ++i)
    {
        char* end = nullptr;
        const double value = *text ? std::strtod(text, &end) : row.number;
        text = *text ? end : text;
        builder.real(row.code + 10 * i, value);
    }
}

} // namespace

Groups defaultValues(const HeaderRow& row)
{
    GroupsBuilder builder;
    switch (row.kind)
    {
    case DxfKind::Point2d:
    case DxfKind::Point3d:
        appendPoint(builder, row);
        break;
    case DxfKind::Real:
    case DxfKind::Angle:
        builder.real(row.code, row.number);
        break;
    case DxfKind::Boolean:
        builder.boolean(row.code, row.number != 0.0);
        break;
    case DxfKind::Integer:
        builder.integer(row.code, static_cast<std::int64_t>(row.number));
        break;
    default:
        builder.text(row.code, row.text);
        break;
    }
    return builder.finish();
}

HeaderVariables& HeaderVariables::of(DatabaseImpl& database)
{
    return database.attachment<HeaderVariables>("header");
}

Groups HeaderVariables::find(std::string_view name) const
{
    const auto place = m_places.find(std::string(name));
    if (place != m_places.end())
        return m_all[place->second].values;
    const HeaderRow* row = findHeaderRow(name);
    return row ? defaultValues(*row) : Groups();
}

void HeaderVariables::put(std::string_view name, Groups values)
{
    const auto [place, isNew] = m_places.emplace(std::string(name), m_all.size());
    if (isNew)
        m_all.push_back({std::string(name), std::move(values)});
    else
        m_all[place->second].values = std::move(values);
}

void HeaderVariables::remove(std::string_view name)
{
    const auto place = m_places.find(std::string(name));
    if (place == m_places.end())
        return;
    const std::size_t index = place->second;
    m_places.erase(place);
    m_all.erase(m_all.begin() + static_cast<std::ptrdiff_t>(index));
    for (auto& [other, at] : m_places)
        if (at > index)
            --at;
}

void HeaderVariables::change(DatabaseImpl& database, std::string_view name, Groups values)
{
    const auto place = m_places.find(std::string(name));
    Groups before = place == m_places.end() ? Groups() : m_all[place->second].values;
    if (before == values && !values.empty())
        return;
    database.journal.record(std::make_unique<VariableChange>(std::string(name), std::move(before)));
    put(name, std::move(values));
}

void HeaderVariables::addDefaults()
{
    for (const HeaderRow& row : headerRows())
        if (!m_places.count(row.name))
            put(row.name, defaultValues(row));
}

} // namespace oddb
