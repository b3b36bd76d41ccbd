#pragma once

#include "params/ParaScreen.h"

class ParaPage;
class QLineEdit;

// Moves the parameter page's controls to and from a ParaScreen, so that a
// handler captures the screen, lets the core work on it, and applies it
// back. The operating current box lives on the operation data page.
class ParaScreenView {
public:
    ParaScreenView(ParaPage& page, QLineEdit& txtDenryu);

    ParaScreen capture() const;
    void apply(const ParaScreen& screen);

private:
    ParaPage& m_page;
    QLineEdit& m_txtDenryu;
};
