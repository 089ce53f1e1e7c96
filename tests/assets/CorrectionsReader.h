#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

class QDomElement;

// A reader of the correction state machine document by its rules: the activities
// of an action are alternatives, a conditional action that holds wins over the
// unconditional one, changes run in document order, booleans compare without case.
namespace CorrectionsReader {

struct Item
{
    enum Kind { ModuleApply, ModuleActivity, CurrentCorrection } kind;
    QString module; // for ModuleActivity
    QString value;  // trimmed text
};

struct Action
{
    QStringList activities;
    bool hasConditionsElement = false;
    bool hasChangesElement = false;
    QVector<Item> conditions;
    QVector<Item> changes;
};

struct State
{
    QMap<QString, bool> active;
    QString current = QStringLiteral("None");
    QStringList commits; // the correction that each moduleApply committed
};

class Document
{
public:
    bool parse(const QByteArray& data, QString* error);
    QStringList moduleNames() const { return m_order; }
    QVector<Action> actions(const QString& module) const { return m_modules.value(module); }

    // The rule that a reader applies: conditional actions that hold, else the unconditional.
    void apply(const QString& module, const QString& activity, State& state) const;
    // Every action that holds, all judged against the state before any change.
    void applyAllThatHold(const QString& module, const QString& activity, State& state) const;

    static bool holds(const Action& action, const State& state);

private:
    QStringList m_order;
    QMap<QString, QVector<Action>> m_modules;
};

} // namespace CorrectionsReader
