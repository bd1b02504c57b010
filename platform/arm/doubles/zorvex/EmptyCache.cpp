/// What the cache word of every class points at. In a file of its own: where classes are compiled,
/// the compiler declares it itself.
extern "C" {
void *_objc_empty_cache[4];
}
