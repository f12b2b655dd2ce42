#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPalette>
#include <QPointer>
#include <QSet>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <unordered_map>
#include <vector>

class Control;
class QAction;
class QLabel;
class QWidget;
class ViewModel;

// Shows a window's model on its widgets: every control of the model is matched by objectName
// with the action, menu or widget of the same name. A change of the model shows the controls that
// changed again; a handler run through the binder shows them all. A caption is shown only when
// the model holds one (Control::hasCaption); otherwise the form's stays.
//
// A name that matches nothing is a mistake that compiles: `check` lists every control of the
// model with no widget (unless declared Control::NoWidget), every handler with no widget, every
// command of the model (an action or push button) with no handler, and every caption that both
// the model and the form give.
//
// A label's colours go into its palette (a changed text colour only repaints it); any other
// widget's go into a style sheet after the one in its "baseStyle" property.
class ModelBinder : public QObject {
    Q_OBJECT
public:
    ModelBinder(ViewModel& model, QWidget& root);

    // Runs `handler` when the action named `name` is triggered, then puts the action's check
    // mark back to what the model says (Qt toggles it on its own before the handler runs).
    void onTriggered(const QString& name, std::function<void()> handler);
    // Runs `handler` when the button named `name` is clicked.
    void onClicked(const QString& name, std::function<void()> handler);
    void render();
    // Reports what `problems` lists, once the window has bound its commands: with `strict` on,
    // throws std::logic_error naming them; otherwise warns.
    void check() const;
    QStringList problems() const;
    // On in debug builds; the tests turn it on too.
    static void setStrict(bool strict);
    // Shows changes of the named controls at most once every `ms`: the first change after a
    // quiet spell at once, later ones together with the newest state when the time is up. For a
    // read-out that may change dozens of times a second, faster than anyone can read.
    void throttle(const QStringList& names, int ms);

private:
    struct Binding {
        Control* control = nullptr;
        QPointer<QObject> target;
        bool throttled = false;
        // A label shows the model's colours through its palette, starting from the one it had
        // when bound; the colours last shown, so an unchanged pair costs nothing.
        QPalette basePalette;
        bool baseAutoFill = false;
        qint64 shownFore = -1;
        qint64 shownBack = -1;
    };
    void apply(Binding& binding);
    void applyLabelColors(Binding& binding, QLabel& label);
    void renderChanged();

    ViewModel& model_;
    QWidget& root_;
    std::vector<Binding> bindings_;
    std::unordered_map<const Control*, std::size_t> index_;
    QTimer throttleGate_;
    int throttleMs_ = 0;
    QElapsedTimer sinceThrottled_;
    std::vector<std::size_t> held_;
    void showHeld();
    QStringList problems_;
    QSet<QString> handled_;
};
