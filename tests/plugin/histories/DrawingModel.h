// What should be in a drawing of texts, labels and borders, as plainly as it can be said: values that are copied whole
// for every step of history, and what each command makes of them.
#pragma once

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "OdString.h"

namespace historytest
{

/// The marks of an entity.
struct Mark
{
    bool isLabel = false;
    std::string guid, name;

    bool operator==(const Mark&) const = default;
};

struct Entity
{
    bool isErased = false;
    std::optional<Mark> mark;
    std::vector<int> listeners; ///< labels

    bool operator==(const Entity&) const = default;
};

struct Label
{
    std::string guid, text;
    std::vector<int> entities;
    bool isErased = false;
    bool isInDictionary = true;

    bool operator==(const Label&) const = default;
};

struct Border
{
    std::string guid;
    bool isErased = false;
    bool isMarkedDeleted = false;
    bool areListsValid = false;
    std::vector<std::string> columns, lines;
    bool isAreaValid = false;
    std::array<double, 6> area{}; ///< coordinates of the first corner and of the second

    bool operator==(const Border&) const = default;
};

/// The state of a drawing. Labels and borders are named by numbers that are given once.
struct Model
{
    std::vector<Entity> entities;
    std::map<int, Label> labels;
    std::map<int, Border> borders; ///< in the order of their dictionary

    bool operator==(const Model&) const = default;

    // ---- What commands make of it

    /// The entities that a new label would take, of those asked for: the others have one already.
    std::vector<int> eligible(const std::vector<int>& asked) const
    {
        std::vector<int> taken;
        for (const int entity : asked)
        {
            const Entity& candidate = entities[static_cast<std::size_t>(entity)];
            const bool isSeenAsLabelled = !candidate.isErased && candidate.mark && candidate.mark->isLabel;
            if (!isSeenAsLabelled)
                taken.push_back(entity);
        }
        return taken;
    }

    void addLabel(int number, const std::vector<int>& taken, const std::string& guid, const std::string& text)
    {
        Label& label = labels[number];
        label.guid = guid;
        label.text = text;
        for (const int entity : taken)
            if (std::find(label.entities.begin(), label.entities.end(), entity) == label.entities.end())
                label.entities.push_back(entity);
        mark(number);
    }

    void deleteLabel(int number)
    {
        if (labels.at(number).isErased)
            return;
        labels[number].isInDictionary = false;
        eraseLabel(number, true);
    }

    void eraseLabel(int number, bool erasing)
    {
        Label& label = labels.at(number);
        if (label.isErased == erasing)
            return;
        label.isErased = erasing;
        erasing ? unmark(number) : mark(number);
    }

    void setReferences(int number, const std::vector<int>& asked)
    {
        unmark(number);
        labels.at(number).entities.clear();
        addLabel(number, asked, labels.at(number).guid, labels.at(number).text);
    }

    void removeReference(int number, int entity)
    {
        if (std::erase(labels.at(number).entities, entity) > 0)
            unmark(number, entity);
    }

private:
    void mark(int number)
    {
        const Label& label = labels.at(number);
        for (const int index : label.entities)
        {
            Entity& entity = entities[static_cast<std::size_t>(index)];
            entity.mark = Mark{true, label.guid, label.text};
            if (std::find(entity.listeners.begin(), entity.listeners.end(), number) == entity.listeners.end())
                entity.listeners.push_back(number);
        }
    }

    void unmark(int number)
    {
        for (const int index : labels.at(number).entities)
            unmark(number, index);
    }

    void unmark(int number, int index)
    {
        const Label& label = labels.at(number);
        Entity& entity = entities[static_cast<std::size_t>(index)];
        std::erase(entity.listeners, number);
        if (!entity.mark)
            return;
        entity.mark->isLabel = false;
        if (entity.mark->guid == label.guid)
            entity.mark->guid.clear();
        if (entity.mark->name == label.text)
            entity.mark->name.clear();
    }
};

/// The state as a text, a line for each thing in it.
inline std::string describe(const Model& model)
{
    std::ostringstream text;
    const auto list = [&](const char* what, const auto& values)
    {
        text << what;
        for (const auto& value : values)
            text << " " << value;
    };
    for (const Entity& entity : model.entities)
    {
        text << (entity.isErased ? "erased entity" : "entity");
        if (entity.mark)
            text << (entity.mark->isLabel ? ", label " : ", mark ") << entity.mark->guid << " " << entity.mark->name;
        list(", listeners", entity.listeners);
        text << "\n";
    }
    for (const auto& [number, label] : model.labels)
    {
        text << (label.isErased ? "erased " : "") << (label.isInDictionary ? "" : "lost ") << "label " << number << " "
             << label.guid << " " << label.text;
        list(", entities", label.entities);
        text << "\n";
    }
    for (const auto& [number, border] : model.borders)
    {
        text << (border.isErased ? "erased " : "") << (border.isMarkedDeleted ? "deleted " : "") << "border " << number
             << " " << border.guid << (border.areListsValid ? ", valid" : ",");
        list(" columns", border.columns);
        list(" lines", border.lines);
        list(border.isAreaValid ? ", valid area" : ", area", border.area);
        text << "\n";
    }
    return text.str();
}

/// A history as it should be: what can be undone and redone, and the transactions that are open.
class ModelHistory
{
public:
    ModelHistory() = default;
    explicit ModelHistory(Model start) { m_now.state = std::move(start); }

    const Model& present() const { return m_now.state; }
    bool canUndo() const { return !m_now.undo.empty(); }
    bool canRedo() const { return !m_now.redo.empty(); }
    std::size_t openTransactions() const { return m_transactions.size(); }

    /// The next state; one that is as the present one is no step.
    void change(const Model& next)
    {
        if (next == m_now.state)
            return;
        m_now.undo.push_back(m_now.state);
        m_now.redo.clear();
        m_now.state = next;
    }
    void undo() { move(m_now.undo, m_now.redo); }
    void redo() { move(m_now.redo, m_now.undo); }

    void startTransaction() { m_transactions.push_back(m_now); }
    void endTransaction() { m_transactions.pop_back(); }
    void abortTransaction()
    {
        m_now = m_transactions.back();
        m_transactions.pop_back();
    }

private:
    struct Moment
    {
        Model state;
        std::vector<Model> undo, redo;
    };

    void move(std::vector<Model>& from, std::vector<Model>& to)
    {
        if (from.empty())
            return;
        to.push_back(m_now.state);
        m_now.state = from.back();
        from.pop_back();
    }

    Moment m_now;
    std::vector<Moment> m_transactions;
};

} // namespace historytest
