#include "qml/Interface.h"

#include <QDir>

// Both are in files that the build makes: the module's types, and its compiled code.
void qml_register_types_Pevrix();

// The macro must not stand in a namespace.
static void keepCompiledCode()
{
    Q_INIT_RESOURCE(qmlcache_pevrix_qml);
}

namespace pevrix {

// The linker leaves out a library's file that nobody names, though it would have announced itself
// when the program starts.
void registerInterface()
{
    static volatile auto keepTypes = &qml_register_types_Pevrix;
    static_cast<void>(keepTypes);
    keepCompiledCode();
}

} // namespace pevrix
