#pragma once

#include <QString>

class QObject;
class QWidget;

// Puts the texts of the active language on a form's controls. Forms are
// built with message numbers instead of texts, kept where each kind of
// control keeps them:
//
//   form                 property "tag"    -> window title, when the tag is not empty
//   QLabel               property "tag"    -> text, when the tag is not empty
//   QAction of a menu    its text          -> text (the number is the design-time text)
//   QAction of a toolbar its tool-tip      -> tool-tip
//   tree/table headers   each header item's Qt::UserRole -> that header's text
//   page of a tab widget property "tag"    -> its tab's text, when the number is > 0
//   button, group box    property "tag"    -> text/title, when the number is > 0
//   any widget           its tool-tip      -> tool-tip, when the number is > 0
//
// A number is the leading number of the text ("12" -> 12, "abc" -> 0,
// "&Help" -> 0). A
// missing message, a number out of range or a control without the property
// leaves that control as it is and the loader goes on with the next one.
class CaptionLoader {
public:
    static void apply(QWidget* form);

    // Keeps message number n as the object's tag.
    static void setTag(QObject* object, int n);
    static QString tag(const QObject* object);

private:
    static void applyControl(QObject* object);
    static void walk(QObject* parent);
};
