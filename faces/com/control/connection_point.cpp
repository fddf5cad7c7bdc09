#include "faces/com/control/connection_point.h"

#include <olectl.h>

#include <algorithm>

#include "faces/com/control/enumeration.h"

namespace zolt20::com {
namespace {

struct ConnectionTraits {
  static void Keep(const CONNECTDATA& connection) { connection.pUnk->AddRef(); }
  static void Drop(const CONNECTDATA& connection) { connection.pUnk->Release(); }
};

}  // namespace

STDMETHODIMP ConnectionPoint::QueryInterface(REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  if (id != IID_IUnknown && id != IID_IConnectionPoint) {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  *object = static_cast<IConnectionPoint*>(this);
  AddRef();
  return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* id) {
  if (id == nullptr) return E_POINTER;
  return Enter([&] {
    *id = sinkId_;
    return S_OK;
  });
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
  if (container == nullptr) return E_POINTER;
  *container = nullptr;
  return Enter([&] {
    *container = &container_;
    container_.AddRef();
    return S_OK;
  });
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
  if (sink == nullptr || cookie == nullptr) return E_POINTER;
  *cookie = 0;
  return Enter([&]() -> HRESULT {
    // A sink of events may implement IDispatch alone, and not the interface of the events.
    Pointer<IUnknown> asSink;
    if (FAILED(sink->QueryInterface(sinkId_, reinterpret_cast<void**>(asSink.Put()))) &&
        (sinkId_ == IID_IPropertyNotifySink ||
         FAILED(sink->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(asSink.Put()))))) {
      return CONNECT_E_CANNOTCONNECT;
    }
    connections_.push_back({++lastCookie_, std::move(asSink)});
    *cookie = lastCookie_;
    return S_OK;
  });
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) {
  return Enter([&] {
    const auto found =
        std::find_if(connections_.begin(), connections_.end(),
                     [cookie](const Connection& each) { return each.cookie == cookie; });
    if (found == connections_.end()) return CONNECT_E_NOCONNECTION;
    // Re-entrancy: releasing the sink may destroy it, and its destructor may call this object.
    const Pointer<IUnknown> sink = std::move(found->sink);
    connections_.erase(found);
    return S_OK;
  });
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** connections) {
  if (connections == nullptr) return E_POINTER;
  *connections = nullptr;
  return Enter([&] {
    std::vector<CONNECTDATA> data;
    for (const Connection& connection : connections_)
      data.push_back({connection.sink.Get(), connection.cookie});
    *connections =
        new Enumeration<IEnumConnections, CONNECTDATA, ConnectionTraits>(std::move(data));
    return S_OK;
  });
}

}  // namespace zolt20::com
