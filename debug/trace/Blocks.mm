#include "debug/trace/Blocks.h"

#include "debug/trace/Alive.h"
#include "debug/trace/Crossing.h"
#include "debug/trace/Show.h"

#import <Foundation/Foundation.h>

#include <Block.h>
#include <algorithm>

extern "C" void *_NSConcreteStackBlock[];

namespace wrt::trace {

namespace {

void copyWrapper(void *to, const void *from) {
  auto *copy = static_cast<Wrapper *>(to);
  copy->wrapped = _Block_copy(static_cast<const Wrapper *>(from)->wrapped);
  noteMade(copy, "handler");
}

void disposeWrapper(const void *block) {
  noteGone(block);
  _Block_release(static_cast<const Wrapper *>(block)->wrapped);
}

constexpr block::Descriptor kDescriptor{0, sizeof(Wrapper), copyWrapper, disposeWrapper};

Method invokeOf(Method taker) {
  taker.member += ".Invoke";
  return taker;
}

} // namespace

BlockArgument::BlockArgument(const Method &taker, const std::string &signature)
    : invoke_(invokeOf(taker)), closure_(debug::parseEncoding(signature), invoked, this) {}

Wrapper BlockArgument::wrap(void *wrapped) const {
  return {{static_cast<void *>(_NSConcreteStackBlock), block::kHasCopyDispose, 0,
           reinterpret_cast<void (*)(void *, ...)>(closure_.code()), &kDescriptor},
          wrapped,
          this};
}

void BlockArgument::invoked(ffi_cif *cif, void *result, void **arguments, void *data) {
  const auto &argument = *static_cast<const BlockArgument *>(data);
  void *wrapped = (*static_cast<Wrapper **>(arguments[0]))->wrapped;
  Closure::Places places;
  std::copy_n(arguments, cif->nargs, places.begin());
  places[0] = &wrapped;

  Crossing crossing(Crossing::Direction::In, argument.invoke_, argument.invoke_.className.c_str());
  ArgumentTexts texts(crossing, argument.closure_, 1, cif->nargs);
  texts.showBefore(places);
  callThrough(crossing, cif,
              reinterpret_cast<void (*)()>(static_cast<block::Block *>(wrapped)->invoke), result,
              places);
  Ending ending;
  if (argument.closure_.result().kind == 'l')
    ending.status = static_cast<HRESULT>(*static_cast<const ffi_sarg *>(result));
  crossing.end(ending);
  texts.showAfter(places, ending);
}

} // namespace wrt::trace
