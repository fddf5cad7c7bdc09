// A connection point: the sinks connected to one outgoing interface of the control.
#pragma once

#include <ocidl.h>

#include <vector>

#include "faces/com/com_pointer.h"
#include "faces/com/control/com_call.h"

namespace zolt20::com {

/// A member of its container object: shares the container's reference count and lifetime. Calls
/// from another thread than the one that made it are refused.
class ConnectionPoint final : public IConnectionPoint {
 public:
  /// Sinks must implement `sinkId`.
  ConnectionPoint(IConnectionPointContainer& container, REFIID sinkId)
      : container_(container), sinkId_(sinkId) {}

  const IID& SinkId() const { return sinkId_; }
  /// A copy of the list of sinks, since one may connect or disconnect while the others are called.
  template <typename Sink>
  std::vector<Pointer<Sink>> Sinks() const {
    std::vector<Pointer<Sink>> sinks;
    for (const Connection& connection : connections_)
      sinks.emplace_back(static_cast<Sink*>(connection.sink.Get()));
    return sinks;
  }

  STDMETHODIMP QueryInterface(REFIID id, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return container_.AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return container_.Release(); }

  STDMETHODIMP GetConnectionInterface(IID* id) override;
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
  STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
  STDMETHODIMP Unadvise(DWORD cookie) override;
  STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

 private:
  struct Connection {
    DWORD cookie;
    Pointer<IUnknown> sink;  // points to the interface of SinkId()
  };

  template <typename Body>
  HRESULT Enter(const Body& body) noexcept {
    return GetCurrentThreadId() == thread_ ? Guarded(body) : RPC_E_WRONG_THREAD;
  }

  const DWORD thread_ = GetCurrentThreadId();
  IConnectionPointContainer& container_;
  IID sinkId_;
  std::vector<Connection> connections_;
  DWORD lastCookie_ = 0;
};

}  // namespace zolt20::com
