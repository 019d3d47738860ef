// The precompiled headers belong to this file.
