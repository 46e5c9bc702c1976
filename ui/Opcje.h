#pragma once

#include <QList>
#include <QWidget>

class QLineEdit;
class ctlDioda;

// The settings page of the plain lamp: its two colours as numbers. It
// shows the first selected lamp's colours and writes both back to it.
class Opcje final : public QWidget {
public:
    explicit Opcje(QWidget *parent = nullptr);

    // The selection changed: the first lamp's colours into the boxes.
    void SelectionChanged(const QList<ctlDioda *> &selected);
    // Writes both boxes to the first selected lamp; text that is no number
    // is the type mismatch.
    void ApplyChanges();
    bool Changed() const { return m_changed; }

private:
    QLineEdit *m_zapal;
    QLineEdit *m_zgas;
    QList<ctlDioda *> m_selected;
    bool m_changed = false;
};
