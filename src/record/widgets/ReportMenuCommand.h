#pragma once

#include <QObject>

#include <functional>

class QWidget;
class ReportPrintout;
struct SequenceContext;

// "Commissioning report..." of the Control menu: asks for the unit and a
// note, reads the controller (ReportCollector), then shows the pages to
// print or save. The preview is a seam tests replace.
class ReportMenuCommand : public QObject {
    Q_OBJECT
public:
    ReportMenuCommand(SequenceContext& ctx, QWidget* window);

    void run();

    std::function<void(ReportPrintout& printout)> showPreview;

private:
    SequenceContext& m_ctx;
    QWidget* m_window;
};
