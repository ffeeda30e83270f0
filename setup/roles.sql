-- The login that workstations use, in T-SQL: it reads and writes the rows of Talvora's tables, and nothing else. Run it
-- in Talvora's database, after schema.sql, by a login that may make logins and owns the database. `talvora-setup grant`
-- runs it; with other tools give the two variables, for instance
--     sqlcmd -d DATABASE -i roles.sql -v Login="talvora_client" Password="..."
-- Each batch ends with a line GO.

if not exists (select * from sys.database_principals where name=N'talvora_workstation')
    create role talvora_workstation
GO
grant select, insert, update, delete on Users to talvora_workstation
GO
grant select, insert, update, delete on UserRole to talvora_workstation
GO
grant select, insert, update, delete on Roles to talvora_workstation
GO
grant select, insert, update, delete on RoleRight to talvora_workstation
GO
grant select, insert, update, delete on Modules to talvora_workstation
GO
grant select, insert, update, delete on ModuleFunction to talvora_workstation
GO
grant select, insert, update, delete on Options to talvora_workstation
GO
grant select, insert, update, delete on Position to talvora_workstation
GO
grant select, insert, update, delete on TestingType to talvora_workstation
GO
grant select, insert, update, delete on TestingTypeCode to talvora_workstation
GO
grant select, insert, update, delete on Examination to talvora_workstation
GO
grant select, insert, update, delete on ExaminationQuestion to talvora_workstation
GO
grant select, insert, update, delete on TestingSolution to talvora_workstation
GO
grant select, insert, update, delete on TestingSolutionDetail to talvora_workstation
GO
grant select, insert, update, delete on TestingResult to talvora_workstation
GO
grant select, insert, update, delete on TestingResultDetail to talvora_workstation
GO
grant select, insert, update, delete on Query to talvora_workstation
GO
create login [$(Login)] with password=N'$(Password)'
GO
create user [$(Login)] for login [$(Login)]
GO
alter role talvora_workstation add member [$(Login)]
GO
