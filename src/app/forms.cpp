#include "app/forms.h"

#include "app/main_window.h"

namespace quillet {

Forms::Forms(ProgramState& state, Dialogs& dialogs, Factories factories)
    : state_(state), dialogs_(dialogs), factories_(std::move(factories)) {}

Forms::~Forms() {
    for (QPointer<QWidget>& form : created_) delete form.data();
}

QWidget& Forms::load(FormId id) {
    QPointer<QWidget>& s = slot(id);
    if (s) return *s;
    QWidget* form = factories_[static_cast<std::size_t>(id)](*this);
    // Stored before its load runs, so that the load may already refer to its own window by name.
    s = form;
    std::erase_if(created_, [](const QPointer<QWidget>& w) { return w.isNull(); });
    created_.emplace_back(form);
    if (auto* events = dynamic_cast<FormEvents*>(form)) events->Form_Load();
    return *form;
}

MainWindow* Forms::mainWindow() {
    return dynamic_cast<MainWindow*>(slot(FormId::Form1).data());
}

void Forms::unload(FormId id) {
    QPointer<QWidget>& s = slot(id);
    QWidget* form = s.data();
    if (!form) return;
    s = nullptr;
    form->hide();
    if (auto* events = dynamic_cast<FormEvents*>(form)) events->Form_Unload();
    form->deleteLater();
}

void Forms::unloadAll() {
    for (FormId id : kJobAndToolWindows) unload(id);
    for (std::size_t i = 0; i < slots_.size(); ++i) unload(static_cast<FormId>(i));
}

}  // namespace quillet
