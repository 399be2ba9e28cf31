// Processor load on Windows from the management service: the formatted processor-information
// performance class, whose instances are the single processors, the per-group totals and the
// overall total, all averaged alike.
#ifdef _WIN32

#include <wbemidl.h>
#include <windows.h>

#include "app/cpu_sampler.h"

namespace quillet {

namespace {

constexpr const wchar_t* kNamespace = L"ROOT\\CIMV2";
constexpr const wchar_t* kQuery =
    L"SELECT * FROM Win32_PerfFormattedData_Counters_ProcessorInformation";
constexpr const wchar_t* kProperty = L"PercentProcessorTime";
// A reading that takes longer than this is given up, so that the window is not held for good.
constexpr long kInstanceTimeoutMs = 2000;

// A COM interface pointer, released when it goes.
template <class Interface>
class ComRef {
public:
    ComRef() = default;
    ~ComRef() { reset(); }
    ComRef(const ComRef&) = delete;
    ComRef& operator=(const ComRef&) = delete;

    Interface* get() const { return pointer_; }
    Interface* operator->() const { return pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }
    // For the functions that hand out a new pointer.
    Interface** out() {
        reset();
        return &pointer_;
    }
    void** outVoid() { return reinterpret_cast<void**>(out()); }
    void reset() {
        if (pointer_) pointer_->Release();
        pointer_ = nullptr;
    }

private:
    Interface* pointer_ = nullptr;
};

class Bstr {
public:
    explicit Bstr(const wchar_t* text) : text_(::SysAllocString(text)) {}
    ~Bstr() { ::SysFreeString(text_); }
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    BSTR get() const { return text_; }

private:
    BSTR text_;
};

// COM on the calling thread for the sampler's lifetime. The window system usually has it set up
// already, in which case this only adds a reference; a thread set up for the other threading
// model still works with the service, and is then left as it is.
class ComApartment {
public:
    ComApartment() : initialised_(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ~ComApartment() {
        if (initialised_) ::CoUninitialize();
    }
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;

private:
    bool initialised_;
};

// Calls through the proxy are made as the user, which a local query of the performance classes
// needs; without it the service may refuse them.
void actAsUser(IUnknown* proxy) {
    ::CoSetProxyBlanket(proxy, RPC_C_AUTHN_WINNT, RPC_C_AUTHZ_NONE, nullptr, RPC_C_AUTHN_LEVEL_CALL,
                        RPC_C_IMP_LEVEL_IMPERSONATE, nullptr, EOAC_NONE);
}

// The counter is a 64-bit number, which the service hands over as text.
void addNumber(VARIANT& value, double& sum) {
    VARIANT number;
    ::VariantInit(&number);
    if (FAILED(::VariantChangeTypeEx(&number, &value, LOCALE_INVARIANT, 0, VT_R8))) return;
    sum += number.dblVal;
}

class WmiCpuSampler : public CpuSampler {
public:
    // The service is obtained once; when that fails every reading fails.
    WmiCpuSampler() {
        ComRef<IWbemLocator> locator;
        if (FAILED(::CoCreateInstance(CLSID_WbemLocator, nullptr, CLSCTX_INPROC_SERVER,
                                      IID_IWbemLocator, locator.outVoid()))) {
            return;
        }
        const Bstr space(kNamespace);
        if (FAILED(locator->ConnectServer(space.get(), nullptr, nullptr, nullptr, 0, nullptr,
                                          nullptr, services_.out()))) {
            services_.reset();
            return;
        }
        actAsUser(services_.get());
    }

    std::optional<double> read() override {
        if (!services_) return std::nullopt;
        const Bstr language(L"WQL");
        const Bstr query(kQuery);
        ComRef<IEnumWbemClassObject> instances;
        if (FAILED(services_->ExecQuery(language.get(), query.get(),
                                        WBEM_FLAG_FORWARD_ONLY | WBEM_FLAG_RETURN_IMMEDIATELY,
                                        nullptr, instances.out()))) {
            return std::nullopt;
        }
        actAsUser(instances.get());
        // Every instance counts in the division; one whose counter cannot be read adds nothing.
        double sum = 0;
        int count = 0;
        for (;;) {
            ComRef<IWbemClassObject> instance;
            ULONG returned = 0;
            const HRESULT next = instances->Next(kInstanceTimeoutMs, 1, instance.out(), &returned);
            if (next == WBEM_S_TIMEDOUT || FAILED(next)) return std::nullopt;
            if (returned == 0) break;
            ++count;
            VARIANT value;
            ::VariantInit(&value);
            if (SUCCEEDED(instance->Get(kProperty, 0, &value, nullptr, nullptr))) {
                addNumber(value, sum);
                ::VariantClear(&value);
            }
        }
        if (count == 0) return std::nullopt;
        return sum / count;
    }

private:
    ComApartment apartment_;  // first in, last out: COM outlives the service
    ComRef<IWbemServices> services_;
};

}  // namespace

std::unique_ptr<CpuSampler> makeSystemCpuSampler() {
    return std::make_unique<WmiCpuSampler>();
}

}  // namespace quillet

#endif
