# Assembles the portable folder FOLDER: PROGRAMS, the demo car made in DEMO, pictures and
# sounds made in ART, the manual, and what SOURCES holds ready. Settings and log belong to the user: they are put there once and never replaced.
file(COPY ${PROGRAMS} DESTINATION ${FOLDER})
file(COPY ${DEMO}/vqmap DESTINATION ${FOLDER})
file(COPY ${DEMO}/demo_ja.adr ${DEMO}/demo_en.adr ${DEMO}/demo.bin ${SOURCES}/README.md
     DESTINATION ${FOLDER}/demo)
file(COPY ${ART}/pictures ${ART}/first_demo.wav ${ART}/info_demo.wav DESTINATION ${FOLDER})
if(EXISTS ${MANUAL})
  file(COPY ${MANUAL} DESTINATION ${FOLDER})
endif()
if(NOT EXISTS ${FOLDER}/zelkova.ini)
  file(COPY ${DEMO}/zelkova.ini DESTINATION ${FOLDER})
endif()
if(NOT EXISTS ${FOLDER}/error.log)
  file(TOUCH ${FOLDER}/error.log)
endif()
