#ifndef WRT_GENERATOR_METHOD_TEXT_H
#define WRT_GENERATOR_METHOD_TEXT_H

#include "generator/project/Method.h"

namespace bridgegen {

enum class Nullability { Shown, Hidden };

/// The head of a method, from its sign to its last argument: `- (void)setX:(int)x error:(NSError
/// **)error`. One that is too long for a line has one argument per line, colons below each other.
std::string methodHead(const Method &method, Nullability nullability);

} // namespace bridgegen

#endif
