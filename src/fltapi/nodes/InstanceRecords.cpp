#include "fltapi/nodes/InstanceRecords.h"

#include "fltapi/io/Output.h"

namespace fltapi {

bool InstanceReferenceRecord::write(Output& output) const
{
  return output.writeDefinitionOnce(instanceNumber()) && PrimNodeRecord::write(output);
}

} // namespace fltapi
