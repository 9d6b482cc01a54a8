# Copies SOURCE to TARGET unless something stands there already.
if(NOT EXISTS ${TARGET})
    configure_file(${SOURCE} ${TARGET} COPYONLY)
endif()
