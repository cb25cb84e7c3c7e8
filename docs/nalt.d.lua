---@meta nalt

-- Script functions of Nalt for the language servers of Lua editors: add the folder of this file to the server's library.
-- Made from the table of script functions. Rewrite it with: cmake --build build --target documents

---The folder of the script with a separator at its end; empty for a bare file name.
---@type string
NALT_PATH_TO_SCRIPT = ""

---In a run with no window: the script at 0, its arguments from 1, the program at -1.
---@type table<integer, string>
arg = {}

---@alias nalt.AttributeSelectionMode
---| '"VERTEX"'
---| '"POLYGON"'
---| '"OBJECT"'
---| '"GROUP"'
---| '"LOD"'
---| '"DOF"'
---| '"EXTERNAL"'
---| '"SWITCH"'
---| '"LIGHTPOINT"'
---| '"LIGHTPOINTSYSTEM"'

---@alias nalt.CreationMode
---| '"OBJECT"'
---| '"GROUP"'
---| '"LOD"'
---| '"DOF"'
---| '"SWITCH"'
---| '"LIGHTPOINTSYSTEM"'

---@alias nalt.DifferencesSource
---| '"CLIPBOARD"'
---| '"FILE"'

---@alias nalt.MatrixType
---| '"TRANSLATE"'
---| '"SCALE"'
---| '"ROTATE_ABOUT_EDGE"'
---| '"ROTATE_ABOUT_POINT"'
---| '"GENERAL_MATRIX"'

---@alias nalt.SelectionMode
---| '"VERTEX"'
---| '"EDGE"'
---| '"POLYGON"'
---| '"OBJECT"'
---| '"GROUP"'
---| '"LOD"'
---| '"DOF"'
---| '"EXTERNAL"'
---| '"SWITCH"'
---| '"LIGHTPOINT"'
---| '"LIGHTPOINTSYSTEM"'
---| '"HEADER"'

---@alias nalt.ShaderType
---| '"GLSL"'
---| '"Cg"'

---@alias nalt.TextureMappingType
---| '"THREEPOINT"'
---| '"FOURPOINT"'
---| '"CYLINDRICAL"'
---| '"SPHERICAL"'

---@alias nalt.WeightFunction
---| '"LINEAR"'
---| '"SQUARE"'
---| '"SQUAREROOT"'
---| '"CUBE"'
---| '"CUBEROOT"'

---@alias nalt.WeightMode
---| '"WEIGHT_PER_VERTEX"'
---| '"WEIGHT_PER_PRIMITIVE"'

nalt = {}

---Gets the version of the program.
---@return number # the program version as a number, 2.9.
function nalt.getVersion() end

---Creates a new (unsaved) OpenFlight model and makes it the current model.
---@param filename string The filename of the model.
---@return boolean # true if the new operation was successful.
function nalt.newModel(filename) end

---Opens an OpenFlight model and makes it the current model.
---@param filename string The filename of the model.
---@return boolean # true if the open operation was successful.
function nalt.openModel(filename) end

---Reverts the current OpenFlight model.
---@return boolean # true if the revert operation was successful.
function nalt.revertModel() end

---Saves the current model to an OpenFlight file with the current model's filename.
---@param version? integer The OpenFlight version to save, 1570 to 1620. Default: 1620.
---@return boolean # true if the save operation was successful.
function nalt.saveModel(version) end

---Saves the current model to an OpenFlight file with a given filename.
---@param filename string The filename of the model.
---@param version? integer The OpenFlight version to save, 1570 to 1620. Default: 1620.
---@return boolean # true if the save operation was successful.
function nalt.saveModelAs(filename, version) end

---Tells whether the current model has unsaved changes.
---@return boolean # true when the current model has unsaved changes.
function nalt.isModelUnsaved() end

---Imports geometry to a new (unsaved) model and makes it the current model.
---@param sourceFilename string The file to import.
---@param targetFilename string The filename of the new model.
---@param textureOutputPath? string The folder for written textures. Default: "".
---@param shaderOutputPath? string The folder for written shaders. Default: "".
---@param shaderOutputBaseName? string The base name for written shaders. Default: "".
---@param externalOutputPath? string The folder for written externals. Default: "".
---@return boolean # true if the import operation was successful.
function nalt.importModel(sourceFilename, targetFilename, textureOutputPath, shaderOutputPath, shaderOutputBaseName, externalOutputPath) end

---Exports the current model to a file. The file extension determines the output file format.
---@param filename string The file to export to.
---@return boolean # true if the export operation was successful.
function nalt.exportModel(filename) end

---Closes the current model.
function nalt.closeModel() end

---Sets the current model to the model with the given filename.
---@param filename string The filename of the model.
---@return boolean # true if the current model switch succeeded.
function nalt.setCurrentModel(filename) end

---Gets the filename of the current model.
---@return string # the filename of the current model, empty string if there is none.
function nalt.getCurrentModelFilename() end

---Saves every model in the run.
---@return boolean # true if every save operation was successful.
function nalt.saveAllModels() end

---Closes every model of the run, without saving.
function nalt.closeAllModels() end

---Cuts the currently selected nodes to the clipboard.
function nalt.cut() end

---Copies the currently selected nodes to the clipboard.
function nalt.copy() end

---Pastes the contents of the clipboard under the current parent.
function nalt.paste() end

---Deletes the currently selected nodes.
function nalt.delete() end

---Sets the parent to the currently selected node.
function nalt.setParent() end

---Gets the name of the current parent.
---@return string # the name of the current parent.
function nalt.getParent() end

---Moves the currently selected nodes to the current parent.
function nalt.changeParent() end

---Shift selected nodes all the way to the left.
---@return boolean # true if any nodes were shifted.
function nalt.shiftFarLeft() end

---Shift selected nodes one step to the left.
---@return boolean # true if any nodes were shifted.
function nalt.shiftLeft() end

---Shift selected nodes one step to the right.
---@return boolean # true if any nodes were shifted.
function nalt.shiftRight() end

---Shift selected nodes all the way to the right.
---@return boolean # true if any nodes were shifted.
function nalt.shiftFarRight() end

---Selects all primitives of a given mode.
---@param selectionMode nalt.SelectionMode
---@return boolean # true if any primitive was selected.
function nalt.selectAll(selectionMode) end

---Selects all nodes with at least one specific name.
---```lua
---nalt.selectByName(name1, name2, ... , caseSensitive, addToSelection)
---```
---@param ... string|string[]|boolean
---@return boolean # true if any primitive was selected.
function nalt.selectByName(...) end

---Clears all selections.
function nalt.selectNone() end

---Inverts the selection of a given mode.
---@param selectionMode nalt.SelectionMode
function nalt.invertSelection(selectionMode) end

---Selects all primitives matching a given condition of desired attributes (see documentation for details).
---@param selectionMode nalt.AttributeSelectionMode
---@param conditionString string The condition, e.g. "Name = a and Hidden = 1".
---@param addToSelection? boolean true if the nodes should be added to the current selection. Default: false.
---@param indexedLightPoint? boolean true if the condition concerns indexed light points. Default: false.
---@return boolean # true if any primitive was selected.
function nalt.selectByAttributes(selectionMode, conditionString, addToSelection, indexedLightPoint) end

---Gets the number of selected primitives of a given mode.
---@param selectionMode nalt.SelectionMode
---@return integer # the number of primitives selected in that mode.
function nalt.getNumSelectedPrimitives(selectionMode) end

---Gets the number of selected primitives.
---@return integer # the number of primitives selected in all modes.
function nalt.getTotalNumSelectedPrimitives() end

---Gets the names of all selected primitives.
---@return string[] # a table of the names of all selected primitives, with numeric keys from 1.
function nalt.getSelectionNames() end

---Converts the selection to a given mode. E.g., if a number of objects and groups are selected and selectionMode is "POLYGON", this will select all polygons beneath the objects and groups.
---@param selectionMode nalt.SelectionMode
function nalt.convertSelection(selectionMode) end

---Select thin sliver polygons, defined as polygons with at least one corner having an angle smaller than the tolerance while the polygon area is smaller than the tolerance.
---@return boolean # true if any primitive was selected.
function nalt.selectSliverPolygons() end

---Selects all polygons in the model (or in the selected sub-tree) having a given number of vertices.
---@param numVertices integer The number of vertices.
---@param selectFromCurrent? boolean true if only the selected sub-tree should be searched. Default: true.
---@return boolean # true if any primitive was selected.
function nalt.selectByNumberOfVertices(numVertices, selectFromCurrent) end

---Selects vertices with a specified two-dimensional x,y position, regardless of their z coordinate.
---@param x number The x coordinate.
---@param y number The y coordinate.
---@return boolean # true if any primitive was selected.
function nalt.selectVerticesByLocation(x, y) end

---Selects the parents of the currently selected nodes.
function nalt.selectParents() end

---Selects the child nodes of the currently selected nodes.
function nalt.selectChildren() end

---Selects the previously selected nodes. This will essentially toggle between the two latest selections.
function nalt.selectPrevious() end

---Select edges in currently selected geometry or in the whole model having no adjacent polygon.
---@return boolean # true if any primitive was selected.
function nalt.selectNakedEdges() end

---Moves the currently selected geometry.
---@param x number The movement along x, or the position if absolute or moveToPoint is true.
---@param y number The movement along y, or the position if absolute or moveToPoint is true.
---@param z number The movement along z, or the position if absolute or moveToPoint is true.
---@param absolute? boolean true if the coordinates are absolute. Default: false.
---@param moveToPoint? boolean true if everything should move to one point. Default: false.
---@param softSelectionActive? boolean true if soft selection should be active. Default: false.
---@param radius? number the soft selection radius. Default: 10.0.
---@param weightFunction? nalt.WeightFunction Default: "LINEAR".
---@param weightMode? nalt.WeightMode Default: "WEIGHT_PER_VERTEX".
---@param freezeX? boolean true if the x axis is frozen. Default: false.
---@param freezeY? boolean true if the y axis is frozen. Default: false.
---@param freezeZ? boolean true if the z axis is frozen. Default: false.
---@param applyMatrix? boolean true if a transformation matrix should be added to the nodes instead. Default: false.
---@return boolean # true if any geometry was moved.
---@overload fun(x: number, y: number, z: number, absolute?: boolean, moveToPoint?: boolean, freezeX?: boolean, freezeY?: boolean, freezeZ?: boolean, applyMatrix?: boolean, softSelectionActive?: boolean, radius?: number, weightFunction?: nalt.WeightFunction, weightMode?: nalt.WeightMode): boolean
function nalt.move(x, y, z, absolute, moveToPoint, softSelectionActive, radius, weightFunction, weightMode, freezeX, freezeY, freezeZ, applyMatrix) end

---Rotates the currently selected geometry.
---@param angle number The angle in degrees.
---@param axisX number The x component of the rotation axis.
---@param axisY number The y component of the rotation axis.
---@param axisZ number The z component of the rotation axis.
---@param normal? boolean true if vertex normals should be rotated. Default: false.
---@param softSelectionActive? boolean true if soft selection should be active. Default: false.
---@param radius? number the soft selection radius. Default: 10.0.
---@param weightFunction? nalt.WeightFunction Default: "LINEAR".
---@param weightMode? nalt.WeightMode Default: "WEIGHT_PER_VERTEX".
---@param applyMatrix? boolean true if a transformation matrix should be added to the nodes instead. Default: false.
---@return boolean # true if any geometry was rotated.
function nalt.rotate(angle, axisX, axisY, axisZ, normal, softSelectionActive, radius, weightFunction, weightMode, applyMatrix) end

---Scales the currently selected geometry.
---@param scaleX number The scale factor along x.
---@param scaleY number The scale factor along y.
---@param scaleZ number The scale factor along z.
---@param softSelectionActive? boolean true if soft selection should be active. Default: false.
---@param radius? number the soft selection radius. Default: 10.0.
---@param weightFunction? nalt.WeightFunction Default: "LINEAR".
---@param weightMode? nalt.WeightMode Default: "WEIGHT_PER_VERTEX".
---@param applyMatrix? boolean true if a transformation matrix should be added to the nodes instead. Default: false.
---@return boolean # true if any geometry was scaled.
function nalt.scale(scaleX, scaleY, scaleZ, softSelectionActive, radius, weightFunction, weightMode, applyMatrix) end

---Adds a transformation matrix to the selected node.
---```lua
---nalt.addTransformationMatrix(type, ...
---  TRANSLATE: fromX, fromY, fromZ, deltaX, deltaY, deltaZ, index)
---  SCALE: centerX, centerY, centerZ, scaleX, scaleY, scaleZ, index)
---  ROTATE_ABOUT_EDGE: point1X, point1Y, point1Z, point2X, point2Y, point2Z, angle, index)
---  ROTATE_ABOUT_POINT: centerX, centerY, centerZ, axisX, axisY, axisZ, angle, index)
---  GENERAL_MATRIX: m00, m01, m02, m03, m10, m11, m12, m13, m20, m21, m22, m23, m30, m31, m32, m33, index)
---```
---@param type nalt.MatrixType
---@param ... any
---@return boolean # true if a transformation matrix was added.
---@overload fun(type: "TRANSLATE", fromX: number, fromY: number, fromZ: number, deltaX: number, deltaY: number, deltaZ: number, index?: integer): boolean
---@overload fun(type: "SCALE", centerX: number, centerY: number, centerZ: number, scaleX: number, scaleY: number, scaleZ: number, index?: integer): boolean
---@overload fun(type: "ROTATE_ABOUT_EDGE", point1X: number, point1Y: number, point1Z: number, point2X: number, point2Y: number, point2Z: number, angle: number, index?: integer): boolean
---@overload fun(type: "ROTATE_ABOUT_POINT", centerX: number, centerY: number, centerZ: number, axisX: number, axisY: number, axisZ: number, angle: number, index?: integer): boolean
---@overload fun(type: "GENERAL_MATRIX", m00: number, m01: number, m02: number, m03: number, m10: number, m11: number, m12: number, m13: number, m20: number, m21: number, m22: number, m23: number, m30: number, m31: number, m32: number, m33: number, index?: integer): boolean
function nalt.addTransformationMatrix(type, ...) end

---Gets the number of transformation matrices of the selected node.
---@return integer # the number of transformation matrices.
function nalt.getNumTransformationMatrices() end

---Gets the type of a transformation matrix of the selected node.
---@param index integer The zero-based index of the matrix.
---@return string # the type as addTransformationMatrix takes it, empty string if there is none.
function nalt.getTransformationMatrixType(index) end

---Gets a transformation matrix of the selected node.
---@param index integer The zero-based index of the matrix.
---@return string type, number ... # the type, then the numbers of the matrix in the order in which addTransformationMatrix takes them.
function nalt.getTransformationMatrix(index) end

---Clears all transformation matrices from the selected node.
---@return boolean # true if any transformation matrices were cleared.
function nalt.clearTransformationMatrices() end

---Removes a transformation matrix from the selected node.
---@param index integer The zero-based index of the matrix.
---@return boolean # true if a transformation matrix was removed.
function nalt.removeTransformationMatrix(index) end

---Moves a transformation matrix to another place in the list of the selected node.
---@param fromIndex integer The present zero-based index of the matrix.
---@param toIndex integer The new zero-based index of the matrix.
---@return boolean # true if a transformation matrix was moved.
function nalt.moveTransformationMatrix(fromIndex, toIndex) end

---Gets the product of all transformation matrices from the root down to the selected node.
---@return number ... # 16 numbers, the matrix row after row.
function nalt.getAccumulatedTransformationMatrix() end

---Eliminates all transformation matrices recursively in the currently selected sub-tree and modifies all coordinates accordingly instead.
---@return boolean # true if any transformation matrices were eliminated.
function nalt.eliminateTransformationMatrices() end

---Creates a polygon.
---```lua
---nalt.createPolygon(x1, y1, z1, x2, y2, z2, ... , xn, yn, zn)
---```
---@param ... number
---@return string # the name of the new polygon, empty string if no polygon was created.
function nalt.createPolygon(...) end

---Creates a disk polygon.
---@param centerX number The x coordinate of the center.
---@param centerY number The y coordinate of the center.
---@param centerZ number The z coordinate of the center.
---@param borderX number The x coordinate of a point on the border.
---@param borderY number The y coordinate of a point on the border.
---@param borderZ number The z coordinate of a point on the border.
---@param normalX number The x component of the normal of the disk.
---@param normalY number The y component of the normal of the disk.
---@param normalZ number The z component of the normal of the disk.
---@param numSegments integer The number of segments.
---@return string # the name of the created disk polygon, empty string if no disk was created.
function nalt.createDisk(centerX, centerY, centerZ, borderX, borderY, borderZ, normalX, normalY, normalZ, numSegments) end

---Creates a sphere.
---@param centerX number The x coordinate of the center.
---@param centerY number The y coordinate of the center.
---@param centerZ number The z coordinate of the center.
---@param borderX number The x coordinate of a point on the border.
---@param borderY number The y coordinate of a point on the border.
---@param borderZ number The z coordinate of a point on the border.
---@param numRows integer The number of rows.
---@param numSegments integer The number of segments.
---@return string # the name of the created sphere object node, empty string if no sphere was created.
function nalt.createSphere(centerX, centerY, centerZ, borderX, borderY, borderZ, numRows, numSegments) end

---Creates one or more external references.
---```lua
---nalt.createExternals(filename1, filename2, ...)
---```
---@param ... string
---@return boolean # true if any external reference nodes were created.
function nalt.createExternals(...) end

---Creates a light point node with one or more light point vertices.
---```lua
---nalt.createLightPoint(indexed, x1, y1, z1, x2, y2, z2, ... , xn, yn, zn)
---```
---@param indexed boolean true if the light point should be an indexed one.
---@param ... number
---@return string # the name of the new light point node, empty string if no light point node was created.
function nalt.createLightPoint(indexed, ...) end

---Creates a primitive of given type.
---@param selectionMode nalt.CreationMode
---@return string # the name of the new node, empty string if no node was created.
function nalt.create(selectionMode) end

---Applies the current color to the currently selected nodes.
---@return boolean # true if any color was applied.
function nalt.applyColor() end

---Reads the color from the currently selected node(s). The retrieved color will be the current color.
---@return boolean # true if a color was retrieved.
function nalt.readColor() end

---Applies the current texture to the currently selected nodes.
---@return boolean # true if any texture was applied.
function nalt.applyTexture() end

---Reads the texture from the currently selected node(s). The retrieved texture will be the current texture.
---@return boolean # true if a texture was retrieved.
function nalt.readTexture() end

---Applies the current texture mapping to the currently selected nodes.
---@return boolean # true if any texture mapping was applied.
function nalt.applyTextureMapping() end

---Reads the texture mapping from the currently selected node(s). The retrieved texture mapping will be the current texture mapping.
---@return boolean # true if a texture mapping was retrieved.
function nalt.readTextureMapping() end

---Applies the current material to the currently selected nodes.
---@return boolean # true if any material was applied.
function nalt.applyMaterial() end

---Reads the material from the currently selected node(s). The retrieved material will be the current material.
---@return boolean # true if a material was retrieved.
function nalt.readMaterial() end

---Applies the current shader to the currently selected nodes.
---@return boolean # true if any shader was applied.
function nalt.applyShader() end

---Reads the shader from the currently selected node(s). The retrieved shader will be the current shader.
---@return boolean # true if a shader was retrieved.
function nalt.readShader() end

---Removes all texture and texture mapping indices from the currently selected nodes.
---@return boolean # true if any texture or texture mapping was removed.
function nalt.removeTexture() end

---Removes all texture mapping indices from the currently selected nodes.
---@return boolean # true if any texture mapping was removed.
function nalt.removeTextureMapping() end

---Removes all material indices from the currently selected nodes.
---@return boolean # true if any material was removed.
function nalt.removeMaterial() end

---Removes all shader indices from the currently selected nodes.
---@return boolean # true if any shader was removed.
function nalt.removeShader() end

---Maps the current texture onto the currently selected geometry.
---```lua
---nalt.mapTexture(type, layer, addToPalette, ...
---  THREEPOINT: x1, y1, z1, x2, y2, z2, x3, y3, z3, u1, v1, u2, v2, u3, v3)
---  FOURPOINT: x1, y1, z1, ... , x4, y4, z4, u1, v1, ... , u4, v4)
---  CYLINDRICAL: lowerX, lowerY, lowerZ, upperX, upperY, upperZ, zeroX, zeroY, zeroZ, repetitions, u0, v0, u1, v1, u2, v2, u3, v3)
---  SPHERICAL: centerX, centerY, centerZ, poleX, poleY, poleZ, zeroX, zeroY, zeroZ, repetitions, u0, v0, u1, v1, u2, v2, u3, v3)
---```
---@param type nalt.TextureMappingType
---@param layer integer The texture layer, 0 - 7.
---@param addToPalette boolean true if the texture mapping should be added to the palette.
---@param ... any
---@return boolean # true if any texture was mapped.
---@overload fun(type: "THREEPOINT", layer: integer, addToPalette: boolean, x1: number, y1: number, z1: number, x2: number, y2: number, z2: number, x3: number, y3: number, z3: number, u1: number, v1: number, u2: number, v2: number, u3: number, v3: number): boolean
---@overload fun(type: "FOURPOINT", layer: integer, addToPalette: boolean, x1: number, y1: number, z1: number, x2: number, y2: number, z2: number, x3: number, y3: number, z3: number, x4: number, y4: number, z4: number, u1: number, v1: number, u2: number, v2: number, u3: number, v3: number, u4: number, v4: number): boolean
---@overload fun(type: "CYLINDRICAL", layer: integer, addToPalette: boolean, lowerX: number, lowerY: number, lowerZ: number, upperX: number, upperY: number, upperZ: number, zeroX: number, zeroY: number, zeroZ: number, repetitions: number, u0?: number, v0?: number, u1?: number, v1?: number, u2?: number, v2?: number, u3?: number, v3?: number): boolean
---@overload fun(type: "SPHERICAL", layer: integer, addToPalette: boolean, centerX: number, centerY: number, centerZ: number, poleX: number, poleY: number, poleZ: number, zeroX: number, zeroY: number, zeroZ: number, repetitions: number, u0?: number, v0?: number, u1?: number, v1?: number, u2?: number, v2?: number, u3?: number, v3?: number): boolean
function nalt.mapTexture(type, layer, addToPalette, ...) end

---Moves the texture over the currently selected geometry.
---@param x number The movement along x.
---@param y number The movement along y.
---@param z number The movement along z.
---@param layer? integer The texture layer, 0 - 7. Default: 0.
---@param freezeX? boolean true if the x axis is frozen. Default: false.
---@param freezeY? boolean true if the y axis is frozen. Default: false.
---@param freezeZ? boolean true if the z axis is frozen. Default: false.
---@return boolean # true if any texture coordinate was changed.
function nalt.moveTextureMap(x, y, z, layer, freezeX, freezeY, freezeZ) end

---Rotates the texture on the currently selected geometry.
---@param angle number The angle in degrees.
---@param axisX number The x component of the rotation axis.
---@param axisY number The y component of the rotation axis.
---@param axisZ number The z component of the rotation axis.
---@param layer? integer The texture layer, 0 - 7. Default: 0.
---@return boolean # true if any texture coordinate was changed.
function nalt.rotateTextureMap(angle, axisX, axisY, axisZ, layer) end

---Scales the texture on the currently selected geometry.
---@param scaleX number The scale factor along x.
---@param scaleY number The scale factor along y.
---@param scaleZ number The scale factor along z.
---@param layer? integer The texture layer, 0 - 7. Default: 0.
---@return boolean # true if any texture coordinate was changed.
function nalt.scaleTextureMap(scaleX, scaleY, scaleZ, layer) end

---Modifies the texture coordinate of one or more given vertices.
---```lua
---nalt.modifyUV(layer, vertexName1, u1, v1, vertexName2, u2, u2, ...)
---```
---@param layer integer The texture layer, 0 - 7.
---@param ... string|number
---@return boolean # true if any texture coordinate was changed.
function nalt.modifyUV(layer, ...) end

---Mirrors the selected nodes with respect to the grid plane.
---@return boolean # true if any geometry was mirrored.
function nalt.mirror() end

---Reverses the polygons in the current selection.
---@return boolean # true if any polygons were reversed.
function nalt.reverse() end

---Slices the currently selected geometry either along the grid plane or along the grid lines.
---@param sliceAlongGridPlane boolean true to slice along the grid plane, false to slice along the grid lines, like a cookie-cutter.
---@return boolean # true if any geometry was sliced.
function nalt.slice(sliceAlongGridPlane) end

---Splits selected edges in halves, triangulates selected polygons and splits polygons between selected vertices.
---@return boolean # true if any geometry was split.
function nalt.split() end

---Extrudes the currently selected polygons.
---```lua
---nalt.extrude(keepFloor, ...
---  POINT: x, y, z, sharedAxis)
---  HEIGHT: height)
---```
---@param keepFloor boolean true if the floor should be kept.
---@param ... any
---@return boolean # true if any geometry was extruded.
---@overload fun(keepFloor: boolean, x: number, y: number, z: number, sharedAxis: boolean): boolean
---@overload fun(keepFloor: boolean, height: number): boolean
function nalt.extrude(keepFloor, ...) end

---Revolves the currently selected polygons around a specific axis. Note that the revolve origin is the current pivot point.
---@param x number The x component of the revolve axis.
---@param y number The y component of the revolve axis.
---@param z number The z component of the revolve axis.
---@param angle number The angle in degrees.
---@param numSteps integer The number of steps.
---@param revolveNormals? boolean true if vertex normals should be revolved. Default: false.
---@return boolean # true if any geometry was revolved.
function nalt.revolve(x, y, z, angle, numSteps, revolveNormals) end

---Increases the complexity of the selected geometry by subdividing the current polygons.
---@param iterations integer The number of subdividing iterations.
---@param subdivideBorders? boolean true if borders should be subdivided. Default: false.
---@return boolean # true if any geometry was subdivided.
function nalt.subdivide(iterations, subdivideBorders) end

---Reduces the complexity of the selected geometry.
---@param level number The simplify level (0 - 1).
---@param weightRatio? number Edge length (0) to normal deviation (1). Default: 0.
---@param boundaryLevel? number The boundary level (0 - 1). Default: 0.
---@param boundaryWeightRatio? number Edge length (0) to edge angles (1). Default: 0.
---@param vertexWeightEqual? boolean true if all vertices weigh the same. Default: true.
---@return boolean # true if any geometry was simplified.
function nalt.simplify(level, weightRatio, boundaryLevel, boundaryWeightRatio, vertexWeightEqual) end

---Merges all polygons in the selected sub-tree that are adjacent and in the same plane.
---@param loose? boolean true to not consider same plane. Default: false.
---@return boolean # true if any polygons were merged.
function nalt.merge(loose) end

---Quantifies all selected vertices to a specific value.
---@param quantification number The value that all coordinates become multiples of.
---@return boolean # true if any vertices were quantified.
function nalt.quantify(quantification) end

---Smooth or flat shades polygons in the selected geometry.
---@param flat boolean true if the polygons should be flat shaded.
---@param updateLightMode boolean true if the polygon light mode should be updated.
---@param vertexColorLit? boolean true if the polygon light mode should be set to 'vertex color lit', false if 'polygon color lit'. Default: false.
---@param creaseAngle? number The crease angle to use when smooth shading. Default: 180.
---@return boolean # true if any polygons were shaded.
function nalt.shade(flat, updateLightMode, vertexColorLit, creaseAngle) end

---Applies a number of attributes to the selected geometry.
---```lua
---nalt.applyAttributes(name1, attribute1, name2, attribute2, ...)
---```
---@param ... string|boolean|number|string
---@return boolean # true if any attribute was applied.
function nalt.applyAttributes(...) end

nalt.setAttributes = nalt.applyAttributes

---Gets a number of attributes of the selected geometry.
---```lua
---nalt.getAttributes(name1, name2, ...)
---```
---@param ... string
---@return boolean|number|string|nil ... # one value for each name (boolean, number or string), nil for what isn't available.
function nalt.getAttributes(...) end

---Adds a mask to the selected switch.
---@param name string The name of the mask.
---@param bits? string The mask as a text of 0 and 1, one for each child; empty for all children. Default: "".
---@return boolean # true if a mask was added.
function nalt.addSwitchMask(name, bits) end

---Removes a mask from the selected switch.
---@param index integer The zero-based index of the mask.
---@return boolean # true if a mask was removed.
function nalt.deleteSwitchMask(index) end

---Changes a mask of the selected switch.
---@param index integer The zero-based index of the mask.
---@param name string The new name of the mask, or the new mask as a text of 0 and 1.
---@param bits? string The new mask as a text of 0 and 1, one for each child. Default: "".
---@return boolean # true if a mask was changed.
function nalt.setSwitchMask(index, name, bits) end

---Makes a mask of the selected switch the current one.
---@param index integer The zero-based index of the mask.
---@return boolean # true if the mask became the current one.
function nalt.setActiveSwitchMaskIndex(index) end

---Gets the number of masks of the selected switch.
---@return integer|string # the number of masks, empty string if not exactly one switch is selected.
function nalt.getNumSwitchMasks() end

---Gets a mask of the selected switch.
---@param index integer The zero-based index of the mask.
---@return string # the mask as a text of 0 and 1, one for each child.
function nalt.getSwitchMask(index) end

---Tells whether a mask of the selected switch shows a child.
---@param maskIndex integer The zero-based index of the mask.
---@param childIndex integer The zero-based number of the child.
---@return boolean # true if the mask shows the child.
function nalt.getSwitchState(maskIndex, childIndex) end

---Gets the index of the current mask of the selected switch.
---@return integer # the zero-based index of the current mask, -1 if there is none.
function nalt.getCurrentSwitchMaskIndex() end

---Applies a comment to the currently selected nodes.
---@param comment string The comment.
---@return boolean # true if a comment was applied.
function nalt.applyComment(comment) end

nalt.setComment = nalt.applyComment

---Gets the comment of the selected node.
---@return string # the comment, empty string if not exactly one node is selected.
function nalt.getComment() end

---Changes the position of the pivot point to a given point.
---@param x number The x coordinate of the new pivot point.
---@param y number The y coordinate of the new pivot point.
---@param z number The z coordinate of the new pivot point.
function nalt.changePivot(x, y, z) end

---Gets the position of the pivot point.
---@return number x, number y, number z # x, y and z of the pivot point.
function nalt.getPivot() end

---Counts what the selected geometry, or the whole model, contains.
---```lua
---nalt.reportStatistics(name1, name2, ...)
---```
---@param ... string
---@return number ... # one number for each name.
function nalt.reportStatistics(...) end

---Compares the selected geometry, or the whole model, with the clipboard or with a file.
---```lua
---nalt.reportDifferences(source, ...
---  CLIPBOARD: ignoreRevisionDate, ignoreDatabaseVersion)
---  FILE: filename, ignoreRevisionDate, ignoreDatabaseVersion)
---```
---@param source nalt.DifferencesSource
---@param ... any
---@return string # the report, empty string if there are no differences.
---@overload fun(source: "CLIPBOARD", ignoreRevisionDate?: boolean, ignoreDatabaseVersion?: boolean): string
---@overload fun(source: "FILE", filename: string, ignoreRevisionDate?: boolean, ignoreDatabaseVersion?: boolean): string
function nalt.reportDifferences(source, ...) end

---Sets the grid to be aligned to the XY plane with the origin at (0,0,0).
function nalt.setXYGrid() end

---Sets the grid to be aligned to the XZ plane with the origin at (0,0,0).
function nalt.setXZGrid() end

---Sets the grid to be aligned to the YZ plane with the origin at (0,0,0).
function nalt.setYZGrid() end

---Sets the grid spacing.
---@param spacing number The spacing between the grid lines.
function nalt.setGridSpacing(spacing) end

---Offsets the grid in the direction of the grid normal.
---@param offset number The distance along the grid normal.
function nalt.addGridOffset(offset) end

---Changes the grid origin, the grid will still be aligned as before but translated so that the grid origin is at the new origin position.
---@param originX number The x coordinate of the new point.
---@param originY number The y coordinate of the new point.
---@param originZ number The z coordinate of the new point.
function nalt.setGridOrigin(originX, originY, originZ) end

---Changes the grid point on axis, the grid will be rotated around the axis from the origin to the third point so that the point on axis lies on one of the grid axes.
---@param pointOnAxisX number The x coordinate of the new point.
---@param pointOnAxisY number The y coordinate of the new point.
---@param pointOnAxisZ number The z coordinate of the new point.
function nalt.setGridPointOnAxis(pointOnAxisX, pointOnAxisY, pointOnAxisZ) end

---Changes the grid third point, the grid will be rotated around the axis from the origin to the point on axis so that the third point lies on the grid plane.
---@param thirdPointX number The x coordinate of the new point.
---@param thirdPointY number The y coordinate of the new point.
---@param thirdPointZ number The z coordinate of the new point.
function nalt.setGridThirdPoint(thirdPointX, thirdPointY, thirdPointZ) end

---Aligns the grid to the currently selected polygon, if any.
---@return boolean # true if alignment was successful.
function nalt.alignGridToPolygon() end

---Gets the grid origin.
---@return number x, number y, number z # x, y and z of the grid origin.
function nalt.getGridOrigin() end

---Gets the grid point on axis.
---@return number x, number y, number z # x, y and z of the grid point on axis.
function nalt.getGridPointOnAxis() end

---Gets the grid third point.
---@return number x, number y, number z # x, y and z of the grid third point.
function nalt.getGridThirdPoint() end

---Sets the current color index (excluding the intensity) for the current model; does nothing if indexed colours aren't used.
---@param index integer The palette index of the color.
function nalt.setCurrentColorIndex(index) end

---Sets the current color intensity for the current model.
---@param intensity integer The intensity, 0 - 127.
function nalt.setCurrentColorIntensity(intensity) end

---Gets the current color index (excluding the intensity) for the current model.
---@return integer # the current color index, -1 if there is none.
function nalt.getCurrentColorIndex() end

---Gets the current color intensity for the current model.
---@return integer # the current color intensity.
function nalt.getCurrentColorIntensity() end

---Sets the current RGB color (if RGB colors are used for this model) for the current model.
---@param red integer The red channel, 0 - 255.
---@param green integer The green channel, 0 - 255.
---@param blue integer The blue channel, 0 - 255.
function nalt.setCurrentColorRGB(red, green, blue) end

---Gets the current RGB color for the current model.
---@return integer red, integer? green, integer? blue # red, green and blue; a single -1 if RGB colors aren't used for this model.
function nalt.getCurrentColorRGB() end

---Opens a palette of colors from disk.
---@param filename string The filename of the color palette on disk.
---@return boolean # true if the palette was opened correctly.
function nalt.openColorPalette(filename) end

---Saves the current color palette to a file on disk.
---@param filename string The filename of the saved palette.
---@return boolean # true if the palette was saved correctly.
function nalt.saveColorPalette(filename) end

---Sets the RGB values of a color in the color palette.
---@param index integer The palette index of the color.
---@param red integer The red channel, 0 - 255.
---@param green integer The green channel, 0 - 255.
---@param blue integer The blue channel, 0 - 255.
---@return boolean # true if a color was changed.
function nalt.setPaletteColor(index, red, green, blue) end

---Gets the RGB values of a color in the color palette.
---@param index integer The palette index of the color.
---@return integer red, integer green, integer blue # red, green and blue.
function nalt.getPaletteColor(index) end

---Loads a texture into the texture palette.
---@param filename string The filename of the texture.
---@return integer # the index of the new texture, -1 if loading failed.
function nalt.loadTexture(filename) end

---Loads a number of textures into the texture palette.
---```lua
---nalt.loadTextures(filename1, filename2, ...)
---```
---@param ... string
---@return boolean # true if all textures were loaded.
function nalt.loadTextures(...) end

---Replaces the texture at a specified index with a new texture with a given filename.
---@param index integer The palette index of the texture.
---@param filename string The filename of the texture.
---@return boolean # true if replacing was successful, i.e. if the index was valid and a new texture was loaded.
function nalt.replaceTexture(index, filename) end

---Gets the palette index of the texture with a given filename.
---@param filename string The filename of the texture.
---@return integer # the palette index, -1 if there is no such texture.
function nalt.getTextureIndex(filename) end

---Gets the highest palette index of all textures.
---@return integer # the highest index used, -1 if there is none.
function nalt.getMaxTextureIndex() end

---Gets the filename of the texture at the specified index.
---@param index integer The palette index of the texture.
---@return string # the filename as it stands in the palette, empty string if there is no such texture.
function nalt.getTextureFilename(index) end

---Gets the size of the texture at the specified index.
---@param index integer The palette index of the texture.
---@return integer width, integer height # width and height in pixels, -1 and -1 if there is no such texture.
function nalt.getTextureSize(index) end

---Sets the current texture index for the current model.
---@param index integer The palette index of the texture.
function nalt.setCurrentTextureIndex(index) end

---Gets the current texture index for the current model.
---@return integer # the current texture index, -1 if there is none.
function nalt.getCurrentTextureIndex() end

---Changes the palette index of a given texture.
---@param oldIndex integer The present index.
---@param newIndex integer The new index.
---@return boolean # true if the index change was successful.
function nalt.changeTextureIndex(oldIndex, newIndex) end

---Opens a palette of textures from disk.
---@param filename string The filename of the texture palette on disk.
---@return boolean # true if the palette was opened correctly.
function nalt.openTexturePalette(filename) end

---Saves the current texture palette to a file on disk.
---@param filename string The filename of the saved palette.
---@return boolean # true if the palette was saved correctly.
function nalt.saveTexturePalette(filename) end

---Removes the texture at the specified index from the palette.
---@param index integer The palette index of the texture.
---@return boolean # true if a texture was removed.
function nalt.removeTextureFromPalette(index) end

---Removes all unused textures from the palette.
---@return boolean # true if any textures was removed.
function nalt.removeUnusedTexturesFromPalette() end

---Removes the path for the texture with a specified index.
---@param index integer The palette index of the texture.
---@return boolean # true if the path removal was successful.
function nalt.removeTexturePath(index) end

---Changes the path for all textures in the palette.
---@param path string The new path.
function nalt.changeAllTexturePaths(path) end

---Removes the paths for all textures in the palette.
function nalt.removeAllTexturePaths() end

---Update all texture paths in the texture palette to be relative to the current model file path.
function nalt.makeTexturePathsRelative() end

---Update all texture paths in the texture palette to be absolute, by appending the model file path to the relative paths.
function nalt.makeTexturePathsAbsolute() end

---Applies a number of texture attributes to the texture with the selected index and saves the corresponding attribute file.
---```lua
---nalt.applyTextureAttributes(index, name1, attribute1, name2, attribute2, ...)
---```
---@param index integer The palette index of the texture.
---@param ... string|boolean|number|string
---@return boolean # true if any texture attribute was applied.
function nalt.applyTextureAttributes(index, ...) end

nalt.setTextureAttributes = nalt.applyTextureAttributes

---Gets a number of texture attributes of the texture with the selected index.
---```lua
---nalt.getTextureAttributes(index, name1, ...)
---```
---@param index integer The palette index of the texture.
---@param ... string
---@return boolean|number|string|nil ... # one value for each name (boolean, number or string), nil for what isn't available.
function nalt.getTextureAttributes(index, ...) end

---Creates a new material in the palette.
---@return integer # the palette index of the new material.
function nalt.newMaterial() end

---Gets the highest palette index of all materials.
---@return integer # the highest index used, -1 if there is none.
function nalt.getMaxMaterialIndex() end

---Sets the current material index for the current model.
---@param index integer The palette index of the material.
function nalt.setCurrentMaterialIndex(index) end

---Gets the current material index for the current model.
---@return integer # the current material index, -1 if there is none.
function nalt.getCurrentMaterialIndex() end

---Changes the palette index of a given material.
---@param oldIndex integer The present index.
---@param newIndex integer The new index.
---@return boolean # true if the index change was successful.
function nalt.changeMaterialIndex(oldIndex, newIndex) end

---Opens a palette of materials from disk.
---@param filename string The filename of the material palette on disk.
---@return boolean # true if the palette was opened correctly.
function nalt.openMaterialPalette(filename) end

---Saves the current material palette to a file on disk.
---@param filename string The filename of the saved palette.
---@return boolean # true if the palette was saved correctly.
function nalt.saveMaterialPalette(filename) end

---Removes the material at the specified index from the palette.
---@param index integer The palette index of the material.
---@return boolean # true if a material was removed.
function nalt.removeMaterialFromPalette(index) end

---Removes all unused materials from the palette.
---@return boolean # true if any materials was removed.
function nalt.removeUnusedMaterialsFromPalette() end

---Sets the ambient color of the material with the given index.
---@param index integer The palette index of the material.
---@param red integer The red channel, 0 - 255.
---@param green integer The green channel, 0 - 255.
---@param blue integer The blue channel, 0 - 255.
---@return boolean # true if a material was changed.
function nalt.setMaterialAmbient(index, red, green, blue) end

---Gets the ambient color of the material with the given index.
---@param index integer The palette index of the material.
---@return integer red, integer green, integer blue # red, green and blue, each 0 - 255.
function nalt.getMaterialAmbient(index) end

---Sets the diffuse color of the material with the given index.
---@param index integer The palette index of the material.
---@param red integer The red channel, 0 - 255.
---@param green integer The green channel, 0 - 255.
---@param blue integer The blue channel, 0 - 255.
---@return boolean # true if a material was changed.
function nalt.setMaterialDiffuse(index, red, green, blue) end

---Gets the diffuse color of the material with the given index.
---@param index integer The palette index of the material.
---@return integer red, integer green, integer blue # red, green and blue, each 0 - 255.
function nalt.getMaterialDiffuse(index) end

---Sets the specular color of the material with the given index.
---@param index integer The palette index of the material.
---@param red integer The red channel, 0 - 255.
---@param green integer The green channel, 0 - 255.
---@param blue integer The blue channel, 0 - 255.
---@return boolean # true if a material was changed.
function nalt.setMaterialSpecular(index, red, green, blue) end

---Gets the specular color of the material with the given index.
---@param index integer The palette index of the material.
---@return integer red, integer green, integer blue # red, green and blue, each 0 - 255.
function nalt.getMaterialSpecular(index) end

---Sets the emissive color of the material with the given index.
---@param index integer The palette index of the material.
---@param red integer The red channel, 0 - 255.
---@param green integer The green channel, 0 - 255.
---@param blue integer The blue channel, 0 - 255.
---@return boolean # true if a material was changed.
function nalt.setMaterialEmissive(index, red, green, blue) end

---Gets the emissive color of the material with the given index.
---@param index integer The palette index of the material.
---@return integer red, integer green, integer blue # red, green and blue, each 0 - 255.
function nalt.getMaterialEmissive(index) end

---Sets the shininess of the material with the given index.
---@param index integer The palette index of the material.
---@param shininess number The shininess, 0 - 128.
---@return boolean # true if a material was changed.
function nalt.setMaterialShininess(index, shininess) end

---Gets the shininess of the material with the given index.
---@param index integer The palette index of the material.
---@return number # the shininess, 0 - 128.
function nalt.getMaterialShininess(index) end

---Sets the alpha of the material with the given index.
---@param index integer The palette index of the material.
---@param alpha number The alpha, 0 - 1.
---@return boolean # true if a material was changed.
function nalt.setMaterialAlpha(index, alpha) end

---Gets the alpha of the material with the given index.
---@param index integer The palette index of the material.
---@return number # the alpha, 0 - 1.
function nalt.getMaterialAlpha(index) end

---Sets the current texture mapping index for the current model.
---@param index integer The palette index of the texture mapping.
function nalt.setCurrentTextureMappingIndex(index) end

---Gets the current texture mapping index for the current model.
---@return integer # the current texture mapping index, -1 if there is none.
function nalt.getCurrentTextureMappingIndex() end

---Changes the palette index of a given texture mapping.
---@param oldIndex integer The present index.
---@param newIndex integer The new index.
---@return boolean # true if the index change was successful.
function nalt.changeTextureMappingIndex(oldIndex, newIndex) end

---Opens a palette of texture mappings from disk.
---@param filename string The filename of the texture mapping palette on disk.
---@return boolean # true if the palette was opened correctly.
function nalt.openTextureMappingPalette(filename) end

---Saves the current texture mapping palette to a file on disk.
---@param filename string The filename of the saved palette.
---@return boolean # true if the palette was saved correctly.
function nalt.saveTextureMappingPalette(filename) end

---Removes the texture mapping at the specified index from the palette.
---@param index integer The palette index of the texture mapping.
---@return boolean # true if a texture mapping was removed.
function nalt.removeTextureMappingFromPalette(index) end

---Removes all unused texture mappings from the palette.
---@return boolean # true if any texture mappings was removed.
function nalt.removeUnusedTextureMappingsFromPalette() end

---Gets the highest palette index of all texture mappings.
---@return integer # the highest index used, -1 if there is none.
function nalt.getMaxTextureMappingIndex() end

---Sets the name of the texture mapping at the specified index.
---@param index integer The palette index of the texture mapping.
---@param name string The new name.
---@return boolean # true if a texture mapping was changed.
function nalt.setTextureMappingName(index, name) end

---Gets the name of the texture mapping at the specified index.
---@param index integer The palette index of the texture mapping.
---@return string # the name, empty string if there is no such texture mapping.
function nalt.getTextureMappingName(index) end

---Gets the type of the texture mapping at the specified index.
---@param index integer The palette index of the texture mapping.
---@return string # the type as mapTexture takes it, empty string if there is no such texture mapping.
function nalt.getTextureMappingType(index) end

---Sets the texture coordinate of a given point in the texture mapping at the specified index.
---@param index integer The palette index of the texture mapping.
---@param number integer The zero-based number of the point.
---@param u number The new u coordinate.
---@param v number The new v coordinate.
---@return boolean # true if a texture mapping was changed.
function nalt.setTextureMappingUV(index, number, u, v) end

---Gets the texture coordinate of a given point in the texture mapping at the specified index.
---@param index integer The palette index of the texture mapping.
---@param number integer The zero-based number of the point.
---@return number u, number v # u and v.
function nalt.getTextureMappingUV(index, number) end

---Sets the number of repetitions of the texture mapping at the specified index; only valid for cylindrical and spherical mappings.
---@param index integer The palette index of the texture mapping.
---@param repetitions number The new number of repetitions.
---@return boolean # true if a texture mapping was changed.
function nalt.setTextureMappingRepetitions(index, repetitions) end

---Gets the number of repetitions of the texture mapping at the specified index.
---@param index integer The palette index of the texture mapping.
---@return number # the number of repetitions.
function nalt.getTextureMappingRepetitions(index) end

---Sets the current light point appearance index for the current model.
---@param index integer The palette index of the light point appearance.
function nalt.setCurrentLightPointAppearanceIndex(index) end

---Sets the current light point animation index for the current model.
---@param index integer The palette index of the light point animation.
function nalt.setCurrentLightPointAnimationIndex(index) end

---Gets the current light point appearance index for the current model.
---@return integer # the current light point appearance index, -1 if there is none.
function nalt.getCurrentLightPointAppearanceIndex() end

---Gets the current light point animation index for the current model.
---@return integer # the current light point animation index, -1 if there is none.
function nalt.getCurrentLightPointAnimationIndex() end

---Changes the palette index of a given light point appearance.
---@param oldIndex integer The present index.
---@param newIndex integer The new index.
---@return boolean # true if the index change was successful.
function nalt.changeLightPointAppearanceIndex(oldIndex, newIndex) end

---Changes the palette index of a given light point animation.
---@param oldIndex integer The present index.
---@param newIndex integer The new index.
---@return boolean # true if the index change was successful.
function nalt.changeLightPointAnimationIndex(oldIndex, newIndex) end

---Opens a palette of light points from disk.
---@param filename string The filename of the light point palette on disk.
---@return boolean # true if the palette was opened correctly.
function nalt.openLightPointPalette(filename) end

---Saves the current light point palette to a file on disk.
---@param filename string The filename of the saved palette.
---@return boolean # true if the palette was saved correctly.
function nalt.saveLightPointPalette(filename) end

---Creates a new light point appearance in the palette.
---@return integer # the palette index of the new light point appearance.
function nalt.newLightPointAppearance() end

---Creates a new light point animation in the palette.
---@return integer # the palette index of the new light point animation.
function nalt.newLightPointAnimation() end

---Gets the highest palette index of all light point appearances.
---@return integer # the highest index used, -1 if there is none.
function nalt.getMaxLightPointAppearanceIndex() end

---Gets the highest palette index of all light point animations.
---@return integer # the highest index used, -1 if there is none.
function nalt.getMaxLightPointAnimationIndex() end

---Removes the light point appearance at the specified index from the palette.
---@param index integer The palette index of the light point appearance.
---@return boolean # true if a light point appearance was removed.
function nalt.removeLightPointAppearanceFromPalette(index) end

---Removes all unused light point appearances from the palette.
---@return boolean # true if any light point appearance was removed.
function nalt.removeUnusedLightPointAppearancesFromPalette() end

---Removes the light point animation at the specified index from the palette.
---@param index integer The palette index of the light point animation.
---@return boolean # true if a light point animation was removed.
function nalt.removeLightPointAnimationFromPalette(index) end

---Removes all unused light point animations from the palette.
---@return boolean # true if any light point animations was removed.
function nalt.removeUnusedLightPointAnimationsFromPalette() end

---Applies a number of attributes to the light point appearance with the selected index.
---```lua
---nalt.applyLightPointAppearanceAttributes(index, name1, attribute1, name2, attribute2, ...)
---```
---@param index integer The palette index of the light point appearance.
---@param ... string|boolean|number|string
---@return boolean # true if any attribute was applied.
function nalt.applyLightPointAppearanceAttributes(index, ...) end

nalt.setLightPointAppearanceAttributes = nalt.applyLightPointAppearanceAttributes

---Gets a number of attributes of the light point appearance with the selected index.
---```lua
---nalt.getLightPointAppearanceAttributes(index, name1, ...)
---```
---@param index integer The palette index of the light point appearance.
---@param ... string
---@return boolean|number|string|nil ... # one value for each name (boolean, number or string), nil for what isn't available.
function nalt.getLightPointAppearanceAttributes(index, ...) end

---Applies a number of attributes to the light point animation with the selected index.
---```lua
---nalt.applyLightPointAnimationAttributes(index, name1, attribute1, name2, attribute2, ...)
---```
---@param index integer The palette index of the light point animation.
---@param ... string|boolean|number|string
---@return boolean # true if any attribute was applied.
function nalt.applyLightPointAnimationAttributes(index, ...) end

nalt.setLightPointAnimationAttributes = nalt.applyLightPointAnimationAttributes

---Gets a number of attributes of the light point animation with the selected index.
---```lua
---nalt.getLightPointAnimationAttributes(index, name1, ...)
---```
---@param index integer The palette index of the light point animation.
---@param ... string
---@return boolean|number|string|nil ... # one value for each name (boolean, number or string), nil for what isn't available.
function nalt.getLightPointAnimationAttributes(index, ...) end

---Adds a new sequence state at the end of the list of the animation.
---@param index integer The palette index of the light point animation.
---@return integer # its zero-based index, -1 if nothing was added.
function nalt.addLightPointSequenceState(index) end

---Removes a sequence state with a given index from the light point animation with the given index.
---@param index integer The palette index of the light point animation.
---@param sequenceIndex integer The zero-based index of the sequence state.
---@return boolean # true if a sequence state was removed.
function nalt.removeLightPointSequenceState(index, sequenceIndex) end

---Gets the number of sequence states of the light point animation with the given index.
---@param index integer The palette index of the light point animation.
---@return integer # the number of sequence states.
function nalt.getNumLightPointSequenceStates(index) end

---Sets the current shader index for the current model.
---@param index integer The palette index of the shader.
function nalt.setCurrentShaderIndex(index) end

---Gets the current shader index for the current model.
---@return integer # the current shader index, -1 if there is none.
function nalt.getCurrentShaderIndex() end

---Changes the palette index of a given shader.
---@param oldIndex integer The present index.
---@param newIndex integer The new index.
---@return boolean # true if the index change was successful.
function nalt.changeShaderIndex(oldIndex, newIndex) end

---Changes the name of a given shader.
---@param index integer The palette index of the shader.
---@param name string The new name.
---@return boolean # true if the name change was successful.
function nalt.setShaderName(index, name) end

---Gets the name of a given shader.
---@param index integer The palette index of the shader.
---@return string # the name, empty string if there is no such shader.
function nalt.getShaderName(index) end

---Opens a palette of shaders from disk.
---@param filename string The filename of the shader palette on disk.
---@return boolean # true if the palette was opened correctly.
function nalt.openShaderPalette(filename) end

---Saves the current shader palette to a file on disk.
---@param filename string The filename of the saved palette.
---@return boolean # true if the palette was saved correctly.
function nalt.saveShaderPalette(filename) end

---Creates a new shader in the palette.
---@param name string The name of the new shader.
---@return integer # the palette index of the new shader.
function nalt.newShader(name) end

---Gets the highest palette index of all shaders.
---@return integer # the highest index used, -1 if there is none.
function nalt.getMaxShaderIndex() end

---Removes the shader at the specified index from the palette.
---@param index integer The palette index of the shader.
---@return boolean # true if a shader was removed.
function nalt.removeShaderFromPalette(index) end

---Removes all unused shaders from the palette.
---@return boolean # true if any shaders was removed.
function nalt.removeUnusedShadersFromPalette() end

---Sets the shader type.
---@param index integer The palette index of the shader.
---@param type nalt.ShaderType
---@return boolean # true if a shader was changed.
function nalt.setShaderType(index, type) end

---Gets the shader type.
---@param index integer The palette index of the shader.
---@return string # "GLSL" or "Cg", empty string if there is no such shader.
function nalt.getShaderType(index) end

---Adds an OpenGL shader vertex program to a shader with a specified index.
---@param index integer The palette index of the shader.
---@param filename string The filename of the program.
---@return boolean # true if a shader was changed.
function nalt.addOpenGLShaderVertexProgram(index, filename) end

---Removes an OpenGL shader vertex program from a shader with a specified index.
---@param index integer The palette index of the shader.
---@param vertexProgramIndex integer The zero-based index of the vertex program.
---@return boolean # true if a shader was changed.
function nalt.removeOpenGLShaderVertexProgram(index, vertexProgramIndex) end

---Gets the OpenGL shader vertex programs of a shader with a specified index.
---@param index integer The palette index of the shader.
---@return string[] # a table of the filenames, with numeric keys from 1.
function nalt.getOpenGLShaderVertexPrograms(index) end

---Adds an OpenGL shader fragment program to a shader with a specified index.
---@param index integer The palette index of the shader.
---@param filename string The filename of the program.
---@return boolean # true if a shader was changed.
function nalt.addOpenGLShaderFragmentProgram(index, filename) end

---Removes an OpenGL shader fragment program from the shader with a specified index.
---@param index integer The palette index of the shader.
---@param fragmentProgramIndex integer The zero-based index of the fragment program.
---@return boolean # true if a shader was changed.
function nalt.removeOpenGLShaderFragmentProgram(index, fragmentProgramIndex) end

---Gets the OpenGL shader fragment programs of a shader with a specified index.
---@param index integer The palette index of the shader.
---@return string[] # a table of the filenames, with numeric keys from 1.
function nalt.getOpenGLShaderFragmentPrograms(index) end

---Sets the Cg shader vertex program for a shader with a specified index.
---@param index integer The palette index of the shader.
---@param filename string The filename of the program.
---@return boolean # true if a shader was changed.
function nalt.setCgShaderVertexProgram(index, filename) end

---Gets the Cg shader vertex program for a shader with a specified index.
---@param index integer The palette index of the shader.
---@return string # the filename of the program, empty string if there is none.
function nalt.getCgShaderVertexProgram(index) end

---Sets the Cg shader fragment program for a shader with a specified index.
---@param index integer The palette index of the shader.
---@param filename string The filename of the program.
---@return boolean # true if a shader was changed.
function nalt.setCgShaderFragmentProgram(index, filename) end

---Gets the Cg shader fragment program for a shader with a specified index.
---@param index integer The palette index of the shader.
---@return string # the filename of the program, empty string if there is none.
function nalt.getCgShaderFragmentProgram(index) end

---Sets the Cg shader vertex program profile for a shader with a specified index.
---@param index integer The palette index of the shader.
---@param profile integer The number of the profile.
---@return boolean # true if a shader was changed.
function nalt.setCgShaderVertexProgramProfile(index, profile) end

---Gets the Cg shader vertex program profile for a shader with a specified index.
---@param index integer The palette index of the shader.
---@return integer # the number of the profile.
function nalt.getCgShaderVertexProgramProfile(index) end

---Sets the Cg shader fragment program profile for a shader with a specified index.
---@param index integer The palette index of the shader.
---@param profile integer The number of the profile.
---@return boolean # true if a shader was changed.
function nalt.setCgShaderFragmentProgramProfile(index, profile) end

---Gets the Cg shader fragment program profile for a shader with a specified index.
---@param index integer The palette index of the shader.
---@return integer # the number of the profile.
function nalt.getCgShaderFragmentProgramProfile(index) end

---Sets the Cg shader vertex program entry point for a shader with a specified index.
---@param index integer The palette index of the shader.
---@param entryPoint string The name of the function that the program starts with.
---@return boolean # true if a shader was changed.
function nalt.setCgShaderVertexProgramEntryPoint(index, entryPoint) end

---Gets the Cg shader vertex program entry point for a shader with a specified index.
---@param index integer The palette index of the shader.
---@return string # the name of the function that the program starts with.
function nalt.getCgShaderVertexProgramEntryPoint(index) end

---Sets the Cg shader fragment program entry point for a shader with a specified index.
---@param index integer The palette index of the shader.
---@param entryPoint string The name of the function that the program starts with.
---@return boolean # true if a shader was changed.
function nalt.setCgShaderFragmentProgramEntryPoint(index, entryPoint) end

---Gets the Cg shader fragment program entry point for a shader with a specified index.
---@param index integer The palette index of the shader.
---@return string # the name of the function that the program starts with.
function nalt.getCgShaderFragmentProgramEntryPoint(index) end

---Removes the paths for a given shader, leaving only the shader source file names.
---@param index integer The palette index of the shader.
---@return boolean # true if a shader was changed.
function nalt.removeShaderPaths(index) end

---Executes a macro with parameters.
---```lua
---nalt.executeMacro(scriptFile, paramName1, paramValue1, ...)
---```
---@param scriptFile string The script file to execute.
---@param ... string|boolean|number|string
---@return boolean # true if the macro was executed.
function nalt.executeMacro(scriptFile, ...) end

---Walks the selected nodes and everything below them and calls a function on each. While a function runs, the selection is just the node it was called for. In the end nothing is selected.
---@param preFunction nil|fun(kind: string): boolean? Called with the type of a node before its children are visited; they are visited if it returns true. nil for none.
---@param postFunction nil|fun(kind: string): boolean? Called with the type of a node after its children were visited. nil for none.
function nalt.traverse(preFunction, postFunction) end

---Gets the number of children of the selected node.
---@return integer # the number of children.
function nalt.getNumChildren() end

---Gets the number of vertices of the selected polygon or light point node.
---@return integer # the number of vertices.
function nalt.getNumVertices() end

---Gets the tolerance within which geometry counts as equal.
---@return number # the tolerance.
function nalt.getTolerance() end

---Sets the tolerance within which geometry counts as equal. It stays when the script has ended.
---@param value number The new tolerance.
function nalt.setTolerance(value) end
