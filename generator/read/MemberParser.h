#ifndef WRT_GENERATOR_MEMBER_PARSER_H
#define WRT_GENERATOR_MEMBER_PARSER_H

#include "generator/read/Syntax.h"
#include "generator/read/TokenStream.h"

namespace bridgegen {

/// The pieces of the grammar that declarations and members share, and the members themselves. Each
/// takes its tokens from the stream; `what` names the thing for messages.

Name dottedName(TokenStream &tokens, std::string_view what);
/// Refuses type arguments that are nested deeper than `kDeepestType`: whatever walks types later
/// does so by recursion.
syntax::TypeName typeName(TokenStream &tokens, std::string_view what);
inline constexpr unsigned kDeepestType = 32;
std::vector<syntax::Attribute> attributes(TokenStream &tokens);
/// The members of an interface with the braces around them.
std::vector<syntax::Member> members(TokenStream &tokens);

} // namespace bridgegen

#endif
