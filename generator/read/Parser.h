#ifndef WRT_GENERATOR_PARSER_H
#define WRT_GENERATOR_PARSER_H

#include "generator/read/Diagnostics.h"
#include "generator/read/Syntax.h"

namespace bridgegen {

/// Reads a declarations file by the grammar of docs/declarations.md. Stops at the first syntax
/// error, which is reported; what was read before it is returned. `source` must outlive the result.
syntax::Unit parse(const Source &source, Diagnostics &diagnostics);

} // namespace bridgegen

#endif
