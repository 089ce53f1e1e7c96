#include "CorrectionsReader.h"

#include <QDomDocument>

namespace CorrectionsReader {

namespace {

bool isTrue(const QString& word)
{
    return word.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0;
}

QVector<Item> readItems(const QDomElement& parent)
{
    QVector<Item> items;
    for (QDomElement e = parent.firstChildElement(); !e.isNull(); e = e.nextSiblingElement()) {
        if (e.tagName() == QLatin1String("moduleApply"))
            items.push_back({Item::ModuleApply, QString(), QString()});
        else if (e.tagName() == QLatin1String("moduleActivity"))
            items.push_back({Item::ModuleActivity, e.attribute("name"), e.text().trimmed()});
        else if (e.tagName() == QLatin1String("currentCorrection"))
            items.push_back({Item::CurrentCorrection, QString(), e.text().trimmed()});
    }
    return items;
}

void carryOut(const QVector<Item>& changes, State& state)
{
    for (const Item& item : changes) {
        if (item.kind == Item::ModuleApply)
            state.commits << state.current;
        else if (item.kind == Item::ModuleActivity)
            state.active[item.module] = isTrue(item.value);
        else
            state.current = item.value;
    }
}

} // namespace

bool Document::parse(const QByteArray& data, QString* error)
{
    QDomDocument document;
    if (!document.setContent(data, error))
        return false;
    const QDomElement root = document.documentElement();
    for (QDomElement module = root.firstChildElement("module"); !module.isNull();
         module = module.nextSiblingElement("module")) {
        const QString name = module.attribute("name");
        m_order << name;
        const QDomElement actions = module.firstChildElement("actions");
        for (QDomElement a = actions.firstChildElement("action"); !a.isNull(); a = a.nextSiblingElement("action")) {
            Action action;
            const QDomElement activities = a.firstChildElement("userActivities");
            for (QDomElement u = activities.firstChildElement("userActivity"); !u.isNull();
                 u = u.nextSiblingElement("userActivity"))
                action.activities << u.text().trimmed();
            const QDomElement conditions = a.firstChildElement("conditions");
            const QDomElement changes = a.firstChildElement("changes");
            action.hasConditionsElement = !conditions.isNull();
            action.hasChangesElement = !changes.isNull();
            action.conditions = readItems(conditions);
            action.changes = readItems(changes);
            m_modules[name].push_back(action);
        }
    }
    return true;
}

bool Document::holds(const Action& action, const State& state)
{
    for (const Item& condition : action.conditions) {
        if (condition.kind == Item::ModuleActivity && state.active.value(condition.module) != isTrue(condition.value))
            return false;
        if (condition.kind == Item::CurrentCorrection && state.current != condition.value)
            return false;
    }
    return true;
}

void Document::apply(const QString& module, const QString& activity, State& state) const
{
    const Action* unconditional = nullptr;
    for (const Action& action : m_modules.value(module)) {
        if (!action.activities.contains(activity))
            continue;
        if (action.conditions.isEmpty()) {
            unconditional = &action;
        } else if (holds(action, state)) {
            carryOut(action.changes, state);
            return;
        }
    }
    if (unconditional)
        carryOut(unconditional->changes, state);
}

void Document::applyAllThatHold(const QString& module, const QString& activity, State& state) const
{
    const State before = state;
    for (const Action& action : m_modules.value(module)) {
        if (action.activities.contains(activity) && holds(action, before))
            carryOut(action.changes, state);
    }
}

} // namespace CorrectionsReader
