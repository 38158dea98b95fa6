# VX_SANITIZE=address,undefined instruments every target of the tree.
if(VX_SANITIZE)
    add_compile_options(-fsanitize=${VX_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    # vptr checks compare type information across libraries with hidden visibility and report false alarms.
    add_compile_options(-fno-sanitize=vptr)
    add_link_options(-fsanitize=${VX_SANITIZE})
endif()
