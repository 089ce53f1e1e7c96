#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

// The gallery's drawing page: the tool cursors, a tool line tiled and stretched, an
// icon painted in each aspect mode, and a debounced text field.
class ToolsPage : public QWidget
{
    Q_OBJECT
public:
    explicit ToolsPage(QWidget* parent = nullptr);

    void retranslate();

    // How long the field waits for typing to stop before it shows the text.
    static constexpr int s_debounceMs = 400;

private slots:
    void showDebouncedText();

private:
    void showDebounceCount();

    QLabel* m_cursorsTitle = nullptr;
    QLabel* m_linesTitle = nullptr;
    QLabel* m_iconsTitle = nullptr;
    QLabel* m_debounceTitle = nullptr;
    QLineEdit* m_field = nullptr;
    QLabel* m_debounced = nullptr;
    int m_debouncedCount = 0;
    QString m_debouncedText;
};
