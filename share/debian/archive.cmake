# In cpack's archive the files belong to who made it and stand in the order of the disk. This one is always the same.
if(CPACK_GENERATOR STREQUAL "TGZ")
  string(TIMESTAMP date %s UTC)
  get_filename_component(name ${CPACK_TEMPORARY_DIRECTORY} NAME)
  execute_process(COMMAND tar --create --file=${CPACK_PACKAGE_FILES} --use-compress-program=gzip\ -9n --format=gnu
    --sort=name --owner=root:0 --group=root:0 --mtime=@${date} ${name}
    WORKING_DIRECTORY ${CPACK_TOPLEVEL_DIRECTORY} COMMAND_ERROR_IS_FATAL ANY)
endif()
