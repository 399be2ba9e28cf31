#include "app/forms.h"

#include <QVariant>

#include "app/form3.h"
#include "app/form4.h"
#include "jobs/job_window.h"
#include "main/form1.h"

namespace quillet {

namespace {

// Kept on the window itself, so that a window unloaded and loaded again starts afresh while the
// old one finishes its procedures.
constexpr const char* kBusyProperty = "quilletBusyProcedures";
constexpr const char* kUnloadedProperty = "quilletUnloaded";

int busyCount(const QWidget* form) {
    return form->property(kBusyProperty).toInt();
}

}  // namespace

Forms::Forms(ProgramState& state, Dialogs& dialogs) : state_(state), dialogs_(dialogs) {}

Forms::~Forms() {
    for (QPointer<QWidget>& form : created_) delete form.data();
}

template <class Form>
Form& Forms::load(FormId id) {
    QPointer<QWidget>& s = slot(id);
    if (auto* existing = qobject_cast<Form*>(s.data())) return *existing;
    auto* form = new Form(*this);
    // Stored before its load runs, so that the load may already refer to its own window by name.
    s = form;
    created_.emplace_back(form);
    std::erase_if(created_, [](const QPointer<QWidget>& w) { return w.isNull(); });
    form->Form_Load();
    return *form;
}

Form1& Forms::form1() {
    return load<Form1>(FormId::Form1);
}
Form3& Forms::form3() {
    return load<Form3>(FormId::Form3);
}
Form4& Forms::form4() {
    return load<Form4>(FormId::Form4);
}
Form5& Forms::form5() {
    return load<Form5>(FormId::Form5);
}
Form6& Forms::form6() {
    return load<Form6>(FormId::Form6);
}
Form7& Forms::form7() {
    return load<Form7>(FormId::Form7);
}
Form8& Forms::form8() {
    return load<Form8>(FormId::Form8);
}

bool Forms::isLoaded(FormId id) const {
    return !slots_[static_cast<std::size_t>(id)].isNull();
}

void Forms::unload(FormId id) {
    QPointer<QWidget>& s = slot(id);
    QWidget* form = s.data();
    if (!form) return;
    s = nullptr;
    form->hide();
    form->setProperty(kUnloadedProperty, true);
    if (busyCount(form) == 0) form->deleteLater();
}

void Forms::unloadAll() {
    for (std::size_t i = 0; i < slots_.size(); ++i) unload(static_cast<FormId>(i));
}

Forms::Busy::Busy(QWidget* form) : form_(form) {
    if (form_) form_->setProperty(kBusyProperty, busyCount(form_) + 1);
}

Forms::Busy::~Busy() {
    if (!form_) return;
    const int remaining = busyCount(form_) - 1;
    form_->setProperty(kBusyProperty, remaining);
    // An unload that came while the procedure ran is completed now that it has returned.
    if (remaining == 0 && form_->property(kUnloadedProperty).toBool()) form_->deleteLater();
}

}  // namespace quillet
