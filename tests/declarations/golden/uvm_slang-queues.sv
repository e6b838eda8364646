// Types of a type file, declared in SystemVerilog (IEEE 1800-2017). A type file has no signs,
// no bounds of queues, and of a class no methods, constraints and parameters. A name that is
// taken, or missing, has the id of its type at the end.

package uvm_pkg;
    class uvm_void;
    endclass
    class uvm_object extends uvm_void;
        static bit use_uvm_seeding;
        string m_leaf_name;
        int m_inst_id;
        static int m_inst_count;
    endclass
    typedef class \uvm_queue#(T=string) ;
    typedef \uvm_queue#(T=string) \uvm_queue::this_type ;
    typedef string \uvm_queue::T ;
    class \uvm_queue#(T=string) extends uvm_object;
        static \uvm_queue::this_type m_global_queue;
        \uvm_queue::T queue [$];
    endclass
    typedef class \uvm_queue#(T=uvm_pkg::uvm_hdl_path_concat) ;
    typedef \uvm_queue#(T=uvm_pkg::uvm_hdl_path_concat) \uvm_queue::this_type_473 ;
    typedef class uvm_hdl_path_concat;
    typedef uvm_hdl_path_concat \uvm_queue::T_478 ;
    class \uvm_queue#(T=uvm_pkg::uvm_hdl_path_concat) extends uvm_object;
        static \uvm_queue::this_type_473 m_global_queue;
        \uvm_queue::T_478 queue [$];
    endclass
    typedef class \uvm_queue#(T=uvm_pkg::uvm_callback) ;
    typedef \uvm_queue#(T=uvm_pkg::uvm_callback) \uvm_queue::this_type_662 ;
    typedef class uvm_callback;
    typedef uvm_callback \uvm_queue::T_663 ;
    class \uvm_queue#(T=uvm_pkg::uvm_callback) extends uvm_object;
        static \uvm_queue::this_type_662 m_global_queue;
        \uvm_queue::T_663 queue [$];
    endclass
    typedef class \uvm_queue#(T=uvm_pkg::m_uvm_waiter) ;
    typedef \uvm_queue#(T=uvm_pkg::m_uvm_waiter) \uvm_queue::this_type_680 ;
    typedef class m_uvm_waiter;
    typedef m_uvm_waiter \uvm_queue::T_682 ;
    class \uvm_queue#(T=uvm_pkg::m_uvm_waiter) extends uvm_object;
        static \uvm_queue::this_type_680 m_global_queue;
        \uvm_queue::T_682 queue [$];
    endclass
    typedef class \uvm_queue#(T=struct{string\x20name;string\x20regex;}uvm_pkg::s$1) ;
    typedef \uvm_queue#(T=struct{string\x20name;string\x20regex;}uvm_pkg::s$1) \uvm_queue::this_type_870 ;
    typedef struct {
        string name;
        string regex;
    } uvm_acs_name_struct;
    typedef uvm_acs_name_struct \uvm_queue::T_871 ;
    class \uvm_queue#(T=struct{string\x20name;string\x20regex;}uvm_pkg::s$1) extends uvm_object;
        static \uvm_queue::this_type_870 m_global_queue;
        \uvm_queue::T_871 queue [$];
    endclass
    typedef class \uvm_queue#(T=uvm_pkg::uvm_resource_base) ;
    typedef \uvm_queue#(T=uvm_pkg::uvm_resource_base) \uvm_queue::this_type_1291 ;
    typedef class uvm_resource_base;
    typedef uvm_resource_base \uvm_queue::T_1292 ;
    class \uvm_queue#(T=uvm_pkg::uvm_resource_base) extends uvm_object;
        static \uvm_queue::this_type_1291 m_global_queue;
        \uvm_queue::T_1292 queue [$];
    endclass
    typedef class \uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_callback),Tname="<unknown>") ;
    typedef \uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_callback),Tname="<unknown>") \uvm_queue::type_id ;
    typedef class \uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_hdl_path_concat),Tname="<unknown>") ;
    typedef \uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_hdl_path_concat),Tname="<unknown>") \uvm_queue::type_id_1977 ;
    typedef class \uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::m_uvm_waiter),Tname="<unknown>") ;
    typedef \uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::m_uvm_waiter),Tname="<unknown>") \uvm_queue::type_id_1978 ;
    typedef class \uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_resource_base),Tname="<unknown>") ;
    typedef \uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_resource_base),Tname="<unknown>") \uvm_queue::type_id_1979 ;
    typedef class \uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=struct{string\x20name;string\x20regex;}uvm_pkg::s$1),Tname="<unknown>") ;
    typedef \uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=struct{string\x20name;string\x20regex;}uvm_pkg::s$1),Tname="<unknown>") \uvm_queue::type_id_1980 ;
    typedef class \uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=string),Tname="<unknown>") ;
    typedef \uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=string),Tname="<unknown>") \uvm_queue::type_id_1981 ;
    typedef struct {
        string path;
        int offset;
        int size;
    } uvm_hdl_path_slice;
    class uvm_hdl_path_concat extends uvm_void;
        uvm_hdl_path_slice slices [];
    endclass
    class uvm_callback extends uvm_object;
        bit m_enabled;
    endclass
    class m_uvm_waiter;
        string inst_name;
        string field_name;
        event trigger;
    endclass
    typedef class uvm_resource_debug;
    class uvm_resource_base extends uvm_object;
        bit modified;
        bit read_only;
        uvm_resource_debug dbg;
        string scope;
        int precedence;
        static int default_precedence;
    endclass
    class uvm_object_wrapper extends uvm_void;
    endclass
    class \uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_callback),Tname="<unknown>") extends uvm_object_wrapper;
    endclass
    class \uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_hdl_path_concat),Tname="<unknown>") extends uvm_object_wrapper;
    endclass
    class \uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::m_uvm_waiter),Tname="<unknown>") extends uvm_object_wrapper;
    endclass
    class \uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_resource_base),Tname="<unknown>") extends uvm_object_wrapper;
    endclass
    class \uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=struct{string\x20name;string\x20regex;}uvm_pkg::s$1),Tname="<unknown>") extends uvm_object_wrapper;
    endclass
    class \uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=string),Tname="<unknown>") extends uvm_object_wrapper;
    endclass
    typedef struct {
        time read_time;
        time write_time;
        int read_count;
        int write_count;
    } \uvm_resource_types::access_t ;
    class uvm_resource_debug extends uvm_object;
        \uvm_resource_types::access_t access [string];
    endclass
endpackage
