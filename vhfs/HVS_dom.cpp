#include "HVS.h"
#include <QDomDocument>
namespace HVS {
bool FileReadDom(const QString&, QDomDocument&, bool)
{
    return false;
}
} // namespace HVS
