#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <vector>

class Control;
class QAction;
class QWidget;
class ViewModel;

// Shows a window's model on its widgets: every control of the model is matched by objectName
// with the action, menu or widget of the same name, and re-rendered whenever the model changes.
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

private:
    struct Binding {
        Control* control;
        QPointer<QObject> target;
    };
    void apply(const Binding& binding);

    ViewModel& model_;
    QWidget& root_;
    std::vector<Binding> bindings_;
};
