// A shared object that is no plug-in.
#include <otx/Export.h>

extern "C" OTX_API int somethingElse();
int somethingElse() { return 1; }
