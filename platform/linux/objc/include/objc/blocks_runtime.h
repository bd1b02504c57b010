#include <Block.h>
