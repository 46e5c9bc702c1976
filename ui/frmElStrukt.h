#pragma once

#include <QDialog>

class QComboBox;
class QLineEdit;
class QRadioButton;
class Station;
class fmStruktura;

// Adds one element under the current element of the structure: an object
// by the name typed, or a controller chosen from the list. It checks
// nothing: a name given twice shows when the tree is built again.
class frmElStrukt final : public QDialog {
    Q_OBJECT

public:
    frmElStrukt(Station &station, fmStruktura &structure, QWidget *parent = nullptr);

    QRadioButton *option1() const { return m_object; }
    QRadioButton *option2() const { return m_controller; }
    QLineEdit *txtNazwa() const { return m_name; }
    QComboBox *cmbRegul() const { return m_controllers; }

    // "&Ok": stores the element, builds the tree again and closes.
    void Command1Click();

private:
    void chooseKind(bool object);

    Station &m_station;
    fmStruktura &m_structure;
    QRadioButton *m_object;
    QRadioButton *m_controller;
    QLineEdit *m_name;
    QComboBox *m_controllers;
};
