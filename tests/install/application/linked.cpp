// A program without a line of Objective-C, which starts with the library all the same.
extern "C" void *objc_getClass(const char *name);

int main() { return objc_getClass("WRTUriBridge") ? 0 : 1; }
